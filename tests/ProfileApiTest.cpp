// What a host reaches only through the API, not through a file: layers it
// makes itself, a profile without a version, layers the profile does not
// hold, curves whose two lines a program filled unequally, and the lookups
// and counts of the sections that no query asks for.

#include <cmath>
#include <cstdint>
#include <map>
#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

using Points = std::map<double, double>;

Layer MakeLayer(std::int32_t mainLayer, std::int32_t firstLayer, std::uint64_t layerCount, double zTop,
                double zBottom) {
    return Layer{mainLayer, firstLayer, layerCount, Length(zTop), Length(zBottom)};
}

template <class Record>
Record Row(int lay1, int lay2, double diameter) {
    Record record;
    record.LAY1 = lay1;
    record.LAY2 = lay2;
    record.DIAM = Length(diameter);
    return record;
}

}  // namespace

TEST(ProfileApi, LayersSplitIntoEqualNumberedPiecesAndMergeWithinTheirMainLayer) {
    const std::vector<Layer> pieces = MakeLayer(7, 4, 3, 10.0, 16.0).Split();
    EXPECT_EQ(pieces, (std::vector<Layer>{MakeLayer(7, 4, 1, 10.0, 12.0), MakeLayer(7, 5, 1, 12.0, 14.0),
                                          MakeLayer(7, 6, 1, 14.0, 16.0)}));
    EXPECT_TRUE(MakeLayer(7, 4, 0, 10.0, 16.0).Split().empty());
    // The deeper bottom wins; another main layer is an error that changes
    // nothing. A layer made and not filled is all zero.
    Layer layer = pieces[0];
    layer.Merge(pieces[1]);
    layer.Merge(MakeLayer(7, 6, 1, 11.0, 13.0));
    EXPECT_EQ(layer, MakeLayer(7, 4, 3, 10.0, 14.0));
    EXPECT_EQ(ErrorOf([&] { layer.Merge(MakeLayer(8, 7, 1, 14.0, 16.0)); }),
              "Unable to join layers with incompatible main layers");
    EXPECT_EQ(layer, MakeLayer(7, 4, 3, 10.0, 14.0));
    EXPECT_EQ(Layer(), MakeLayer(0, 0, 0, 0.0, 0.0));
}

TEST(ProfileApi, AProfileWithoutVersionOrALayerItDoesNotHoldHasNoAnswers) {
    Terrix profile = Read(CaseText("round-trip/every-section-v4.terrix"));
    const Layer layer = profile.GetLayers(false).front();
    // Divisions cover layers 1 to 6, main layers 1 to 3.
    EXPECT_EQ(ErrorOf([&] { profile.GetPyData(MakeLayer(1, 7, 1, 20.0, 25.0)); }), "Could not find layer");
    const Terrix v5 = Read(CaseText("round-trip/every-section-v5.terrix"));
    EXPECT_EQ(ErrorOf([&] { v5.GetBSyData(MakeLayer(4, 1, 1, 0.0, 1.0)); }), "Could not find layer");

    profile.SetVersion(Version::Unknown);
    EXPECT_TRUE(profile.GetLayers(true).empty());
    EXPECT_EQ(ErrorOf([&] { profile.GetPhi(layer); }), "Unknown TERRIX version");
    EXPECT_EQ(ErrorOf([&] { profile.GetInitialModulus(layer); }), "Unknown TERRIX version");
    EXPECT_EQ(ErrorOf([&] { profile.GetPyData(layer); }), "TERRIX version undefined");
    EXPECT_EQ(ErrorOf([&] { profile.GetMthetaData(layer); }), "TERRIX version undefined");
    EXPECT_EQ(profile.GetSoilType(layer), Terrix::SoilType::Undefined);
    EXPECT_TRUE(profile.GetSkinCompression(layer).empty() && profile.GetSUz(layer).empty());
    EXPECT_FALSE(profile.GetInitialSoilShearModulus(layer) || profile.GetPoissonRatio(layer));
    EXPECT_FALSE(profile.GetZoneOfInfluenceTZ() || profile.GetCurveShapeFactorTZ());
}

// A layer a host cuts from a version 5 main layer has the main layer's axial
// values at its own levels, and the strengths at the main layer's levels.
// Curve data made and not filled have code 0 and no curves or factors.
TEST(ProfileApi, APieceOfAMainLayerAndCurveDataNotYetFilled) {
    const Terrix profile = Read(CaseText("round-trip/every-section-v5.terrix"));
    const auto numbers = [](const Terrix::StressByLevel& table) {
        Points points;
        for (const auto& [level, stress] : table) points[level.GetValue()] = stress.GetValue();
        return points;
    };
    const Layer piece = MakeLayer(2, 3, 1, 6.0, 9.0);
    EXPECT_EQ(numbers(profile.GetSkinCompression(piece)), (Points{{6.0, 20.0}, {9.0, 35.5}}));
    EXPECT_EQ(numbers(profile.GetSUz(piece)), (Points{{5.5, 40.0}, {12.0, 60.0}}));
    EXPECT_EQ(numbers(profile.GetSkinCompression(MakeLayer(2, 3, 1, 6.0, 6.0))), (Points{{6.0, 35.5}}));

    const PyData py;
    EXPECT_TRUE(py.code == 0 && py.manualCurves.empty() && py.modifications.empty());
    EXPECT_TRUE(TzData().code == 0 && QzData().code == 0);
}

TEST(ProfileApi, AManualCurveIsTheFirstOfExactlyItsLayerAndDiameter) {
    ManualPyLateralResistanceDataSection section;
    section.records = {{3, Length(2.0), {0.0, 15.0, 30.0}, {0.0, 0.01, 0.02}},
                       {3, Length(2.0), {0.0, 99.0}, {0.0, 0.01}},
                       {4, Length(2.0), {0.0, 20.0, 40.0}, {0.0, 0.01}}};
    EXPECT_EQ(section.GetManualCurve(3, Length(2.0)).points, (Points{{0.0, 0.0}, {0.01, 15.0}, {0.02, 30.0}}));
    // No tolerance, and 0 is a diameter like any other.
    for (const double diameter : {0.0, std::nextafter(2.0, 3.0)})
        EXPECT_EQ(ErrorOf([&] { section.GetManualCurve(3, Length(diameter)); }), "Manual PY curve not defined");
    // Two lines filled unequally pair up to the shorter one.
    EXPECT_EQ(section.GetManualCurve(4, Length(2.0)).points, (Points{{0.0, 0.0}, {0.01, 20.0}}));
}

TEST(ProfileApi, SectionCountsAndLookupsThatNoQueryAsksFor) {
    // With 10 layers and 3 diameters: "3 4" at every diameter covers 6 pairs,
    // "0 0" all 30, "5 3" none; a pair two rows cover counts twice.
    using PyRow = PyLateralResistanceDataModificationSectionRecord;
    PyLateralResistanceDataModificationSection py;
    py.records = {Row<PyRow>(3, 4, 0.0), Row<PyRow>(0, 0, 0.0), Row<PyRow>(5, 3, 1.0)};
    EXPECT_EQ(py.GetLayerCount(10, 3), 36u);
    // The first row of a layer whatever its diameter: here the row for every
    // layer, which stands before the row naming layer 6.
    using TzRow = TzSkinFrictionDataModificationSectionRecord;
    TzSkinFrictionDataModificationSection tz;
    EXPECT_FALSE(tz.GetModificationForLayer(6));
    tz.records = {Row<TzRow>(1, 2, 1.524), Row<TzRow>(0, 0, 0.0), Row<TzRow>(6, 6, 2.134)};
    EXPECT_TRUE(tz.GetModificationForLayer(6) == tz.records[1]);
    EXPECT_TRUE(tz.GetModificationForLayer(2) == tz.records[0]);

    // A division written backwards counts LAYER2 - LAYER1 + 1 in 64 bits,
    // wrapped to the unsigned count; a negative subdivision is sign-extended.
    using Division = SoilLayerDivisionsAndCodesForPyTzQzSectionRecord;
    EXPECT_EQ((Division{3, 2, 1, Length(1.0), 0, 293, 293}.GetSublayerCount()), 0u);
    EXPECT_EQ((Division{3, 1, 1, Length(1.0), 0, 293, 293}.GetLayer(Length(0.0)).layerCount), std::uint64_t(-1));
    EXPECT_EQ((MainLayersSubdivisionAndPyTzQzCodesSectionRecord{1, Length(5.0), -1, 0, 0, 0, 0, {}}
                   .GetLayer(1, Length(0.0))
                   .layerCount),
              std::uint64_t(-1));
    EXPECT_TRUE((Division{1, 1, 1, Length(1.0), 284, 0, 293}.HasManualCodes()));
    EXPECT_FALSE((Division{1, 1, 1, Length(1.0), 284, 293, 293}.HasManualCodes()));
    EXPECT_EQ(Read(CaseText("round-trip/every-section-v5.terrix"))
                  .GetTerrixInputData()
                  .mainLayersSubdivisionAndPyTzQzCodesSection.CountSubLayers(),
              4u);
    // A level row is part of a layer from its top to its bottom, both ends
    // included.
    SkinFrictionAndTipResistanceSectionV4Record level;
    for (const double z : {10.0, 16.0}) {
        level.ZLEV = Length(z);
        EXPECT_TRUE(level.IsPartOfLayer(MakeLayer(1, 1, 1, 10.0, 16.0)));
    }
    level.ZLEV = Length(std::nextafter(16.0, 17.0));
    EXPECT_FALSE(level.IsPartOfLayer(MakeLayer(1, 1, 1, 10.0, 16.0)));
}

// A profile set to the main layer table without AK reads only that layout.
TEST(ProfileApi, AProfileOfTheLayoutWithoutAKReadsNoTableWithAK) {
    Terrix profile(Version::V5, Revision::WithoutAK);
    std::istringstream text(CaseText("round-trip/every-section-v5.terrix"));
    EXPECT_NE(ErrorOf([&] { profile.Import(text, "kN", "m"); })
                  .find("Unable to find section\nWhile importing section: 'SOIL MAIN LAYERS AND PROPERTIES SECTION'"),
              std::string::npos);
}
