// The library takes every heap block of its objects from the allocation
// service, so a host can put them in memory of its own. This program is such
// a host: it defines AllocationCallbacks::New and Delete itself, on malloc
// and free, and keeps a ledger of the blocks handed out. Linking it leaves
// the library's default service out.

#include <cstdlib>
#include <sstream>

#include <gtest/gtest.h>

#include <TerrixExchange/archive/SpiritExporter.h>
#include <TerrixExchange/archive/SpiritImporter.h>
#include <TerrixExchange/document/Terrix.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>
#include <TerrixExchange/queries/Layer.h>
#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>

namespace {

// The blocks handed out and not yet given back, with their sizes. A fixed
// table: the ledger must not allocate while it is called from New.
struct Ledger {
    static constexpr std::size_t capacity = 1024;
    void* blocks[capacity] = {};
    std::size_t sizes[capacity] = {};
    std::size_t live = 0;
    std::size_t news = 0;
    std::size_t deletes = 0;
    std::size_t unknownDeletes = 0;
    std::size_t lastSize = 0;

    void Add(void* block, std::size_t size) {
        ++news;
        lastSize = size;
        for (std::size_t i = 0; i < capacity; ++i) {
            if (blocks[i] == nullptr) {
                blocks[i] = block;
                sizes[i] = size;
                ++live;
                return;
            }
        }
        std::abort();  // more live blocks than any test here makes
    }
    void Remove(void* block) {
        ++deletes;
        for (std::size_t i = 0; i < capacity; ++i) {
            if (blocks[i] == block) {
                blocks[i] = nullptr;
                --live;
                return;
            }
        }
        ++unknownDeletes;
    }
};

Ledger ledger;

}  // namespace

namespace TerrixExchange { namespace AllocationCallbacks {

void* New(std::size_t size) {
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) throw std::bad_alloc();
    ledger.Add(block, size);
    return block;
}

void Delete(void* pointer) noexcept {
    if (pointer == nullptr) return;
    ledger.Remove(pointer);
    std::free(pointer);
}

}}  // namespace TerrixExchange::AllocationCallbacks

namespace {

using namespace TerrixExchange;

// The ledger's counts from the start of a test on.
class AllocationTest : public ::testing::Test {
protected:
    void SetUp() override {
        newsBefore_ = ledger.news;
        deletesBefore_ = ledger.deletes;
        liveBefore_ = ledger.live;
    }
    std::size_t News() const { return ledger.news - newsBefore_; }
    std::size_t Deletes() const { return ledger.deletes - deletesBefore_; }
    std::size_t Live() const { return ledger.live - liveBefore_; }

private:
    std::size_t newsBefore_ = 0;
    std::size_t deletesBefore_ = 0;
    std::size_t liveBefore_ = 0;
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
TYPED_TEST_SUITE(ObjectAllocationTest, LibraryClasses);

TYPED_TEST(ObjectAllocationTest, NewAndDeleteGoThroughTheService) {
    TypeParam* object = new TypeParam();
    EXPECT_EQ(this->News(), 1u);
    EXPECT_GE(ledger.lastSize, sizeof(TypeParam));
    EXPECT_EQ(this->Live(), 1u);
    delete object;
    EXPECT_EQ(this->Deletes(), 1u);
    EXPECT_EQ(this->Live(), 0u);
    EXPECT_EQ(ledger.unknownDeletes, 0u);
}

TYPED_TEST(ObjectAllocationTest, ArrayNewAndDeleteGoThroughTheService) {
    TypeParam* objects = new TypeParam[3];
    EXPECT_EQ(this->News(), 1u);
    EXPECT_GE(ledger.lastSize, 3 * sizeof(TypeParam));
    delete[] objects;
    EXPECT_EQ(this->Deletes(), 1u);
    EXPECT_EQ(this->Live(), 0u);
    EXPECT_EQ(ledger.unknownDeletes, 0u);
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
    EXPECT_EQ(News(), Deletes());
    EXPECT_EQ(Live(), 0u);
    EXPECT_EQ(ledger.unknownDeletes, 0u);
}

}  // namespace
