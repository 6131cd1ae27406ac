// The library takes every heap block of its objects from the allocation
// service, so a host can put them in memory of its own. This program is such
// a host: it defines AllocationCallbacks::New and Delete itself, on malloc
// and free, and counts the blocks handed out and given back. Linking it
// leaves the library's default service out.

#include <cstdlib>
#include <sstream>

#include <string>

#include <gtest/gtest.h>

#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>
#include <TerrixExchange/document/Terrix.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>
#include <TerrixExchange/queries/Layer.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>

namespace {

// Plain counters: New must not allocate while it counts.
std::size_t news = 0;
std::size_t deletes = 0;
std::size_t lastSize = 0;

}  // namespace

namespace TerrixExchange { namespace AllocationCallbacks {

void* New(std::size_t size) {
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    ++news;
    lastSize = size;
    return block;
}

void Delete(void* pointer) noexcept {
    if (pointer == nullptr) return;
    ++deletes;
    std::free(pointer);
}

}}  // namespace TerrixExchange::AllocationCallbacks

namespace {

using namespace TerrixExchange;

// The counts from the start of a test on; the blocks handed out and not yet
// given back are the live ones.
class AllocationTest : public ::testing::Test {
protected:
    void SetUp() override {
        newsBefore_ = news;
        deletesBefore_ = deletes;
    }
    std::size_t News() const { return news - newsBefore_; }
    std::size_t Deletes() const { return deletes - deletesBefore_; }
    std::size_t Live() const { return News() - Deletes(); }

private:
    std::size_t newsBefore_ = 0;
    std::size_t deletesBefore_ = 0;
};

template <class T>
class ObjectAllocationTest : public AllocationTest {};

// Every class a host may create on the heap with a default constructor.
using LibraryClasses = ::testing::Types<
    Terrix, TerrixMultipleSoilProfiles, TerrixInputData, ControlSection, MaterialCoefficientsSection,
    PileDiametersAndGroupEffectsSection, SoilSurfaceAndGroundWaterSection, LoadsAtSoilSurfaceSection,
    SoilTypeAndPropertySection, SoilTypeAndPropertySectionRecord, SkinFrictionAndTipResistanceSectionV4,
    SkinFrictionAndTipResistanceSectionV4Record, SoilLayerDivisionsAndCodesForPyTzQzSection,
    SoilLayerDivisionsAndCodesForPyTzQzSectionRecord, SoilMainLayersAndPropertiesSection,
    SoilMainLayersAndPropertiesSectionRecord, SkinFrictionAndTipResistanceSectionV5,
    SkinFrictionAndTipResistanceSectionV5Record, MainLayersSubdivisionAndPyTzQzCodesSection,
    MainLayersSubdivisionAndPyTzQzCodesSectionRecord, ManualPyLateralResistanceDataSection,
    ManualPyLateralResistanceDataSection::Record, PyLateralResistanceDataModificationSection,
    ManualTzSkinFrictionDataSection, TzSkinFrictionDataModificationSection, ManualQzPileTipResistanceDataSection,
    QzPileTipResistanceDataModificationSection, ManualMthetaMomentDataSection, MthetaMomentDataModificationSection,
    ManualBSYBaseShearDataSection, BSYBaseShearDataModificationSection, ManualBMthetaMomentDataSection,
    BMthetaMomentDataModificationSection, GivenSoilDisplacementsAndOpenHoleSection,
    GivenSoilDisplacementsAndOpenHoleSectionRecord, Layer>;
// The typed tests named by their index, as GoogleTest names them by default;
// given, since leaving out the macro's optional argument is an extension
// that -Wpedantic warns of.
struct NamedByIndex {
    template <class Type>
    static std::string GetName(int index) {
        return std::to_string(index);
    }
};
TYPED_TEST_SUITE(ObjectAllocationTest, LibraryClasses, NamedByIndex);

TYPED_TEST(ObjectAllocationTest, NewAndDeleteSingleAndArrayGoThroughTheService) {
    TypeParam* object = new TypeParam();
    EXPECT_EQ(this->News(), 1u);
    EXPECT_GE(lastSize, sizeof(TypeParam));
    delete object;
    EXPECT_EQ(this->Deletes(), 1u);

    TypeParam* objects = new TypeParam[3];
    EXPECT_EQ(this->News(), 2u);
    EXPECT_GE(lastSize, 3 * sizeof(TypeParam));
    delete[] objects;
    EXPECT_EQ(this->Deletes(), 2u);
}

TEST_F(AllocationTest, ArchivesOnTheHeapGoThroughTheService) {
    std::istringstream input("TERRIX\n");
    Importer* importer = new Importer(StreamIterator(input), StreamIterator(), Units::Runtime::UnitSystem(), true);
    std::ostringstream output;
    Exporter* exporter = new Exporter(StreamSink(output), 10, boost::none);
    EXPECT_EQ(News(), 2u);
    EXPECT_EQ(Live(), 2u);
    delete importer;
    delete exporter;
    EXPECT_EQ(Deletes(), 2u);
    EXPECT_EQ(Live(), 0u);
}

// A host's whole round: profiles made, written, read back and thrown away on
// the heap, every block given back.
TEST_F(AllocationTest, ExportAndImportOnTheHeapBalance) {
    Terrix* written = new Terrix(Version::V5);
    written->GetTerrixInputData().controlSection.profileName = "HEAP-01";
    std::stringstream text;
    written->Export(text, "kN", "m", {"A profile on the heap"}, true);

    Terrix* read = new Terrix();
    read->Import(text, "kN", "m");
    EXPECT_EQ(read->GetTerrixInputData().controlSection.profileName, "HEAP-01");
    TerrixMultipleSoilProfiles* profiles = new TerrixMultipleSoilProfiles();
    profiles->AddSoilProfile(*read);
    EXPECT_EQ(Live(), 3u);

    delete profiles;
    delete read;
    delete written;
    EXPECT_EQ(Live(), 0u);
}

}  // namespace
