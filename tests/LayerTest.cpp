#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include <TerrixExchange/queries/Layer.h>

using namespace TerrixExchange;
using Length = Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>;

namespace {

Layer MakeLayer(std::int32_t mainLayer, std::int32_t firstLayer, std::uint64_t layerCount, double top, double bottom) {
    return Layer{mainLayer, firstLayer, layerCount, Length(top), Length(bottom)};
}

}  // namespace

TEST(Layer, SplitCutsALayerIntoEqualNumberedPieces) {
    const std::vector<Layer> pieces = MakeLayer(7, 4, 3, 10.0, 16.0).Split();
    const std::vector<Layer> expected{MakeLayer(7, 4, 1, 10.0, 12.0), MakeLayer(7, 5, 1, 12.0, 14.0),
                                      MakeLayer(7, 6, 1, 14.0, 16.0)};
    EXPECT_EQ(pieces, expected);

    // The last piece ends at the layer's bottom itself, even where adding up
    // thirds would not reach it exactly.
    const std::vector<Layer> thirds = MakeLayer(1, 1, 3, 0.1, 0.7).Split();
    ASSERT_EQ(thirds.size(), 3u);
    EXPECT_EQ(thirds.front().zTop, Length(0.1));
    EXPECT_EQ(thirds.back().zBottom, Length(0.7));
    EXPECT_EQ(thirds[0].zBottom, thirds[1].zTop);
    EXPECT_EQ(thirds[1].zBottom, thirds[2].zTop);
}

TEST(Layer, SplitOfNoneOrOneLayer) {
    EXPECT_TRUE(MakeLayer(2, 5, 0, 3.0, 8.0).Split().empty());
    EXPECT_EQ(MakeLayer(2, 5, 1, 3.0, 8.0).Split(), std::vector<Layer>{MakeLayer(2, 5, 1, 3.0, 8.0)});
}

TEST(Layer, MergeExtendsALayerByTheOneBelow) {
    Layer layer = MakeLayer(3, 1, 2, 10.0, 12.0);
    layer.Merge(MakeLayer(3, 3, 3, 12.0, 14.0));
    EXPECT_EQ(layer, MakeLayer(3, 1, 5, 10.0, 14.0));

    // The deeper bottom wins: a shallower one leaves the bottom as it was.
    layer.Merge(MakeLayer(3, 6, 1, 11.0, 13.0));
    EXPECT_EQ(layer, MakeLayer(3, 1, 6, 10.0, 14.0));
}

TEST(Layer, MergeOfAnotherMainLayerFailsAndChangesNothing) {
    Layer layer = MakeLayer(3, 1, 2, 10.0, 12.0);
    try {
        layer.Merge(MakeLayer(4, 3, 1, 12.0, 14.0));
        FAIL() << "expected an error";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "Unable to join layers with incompatible main layers");
    }
    EXPECT_EQ(layer, MakeLayer(3, 1, 2, 10.0, 12.0));
}

TEST(Layer, DefaultLayerIsAllZero) {
    EXPECT_EQ(Layer(), MakeLayer(0, 0, 0, 0.0, 0.0));
}

TEST(Layer, ComparisonIsExactAndMemberWise) {
    const Layer layer = MakeLayer(1, 2, 3, 4.0, 5.0);
    EXPECT_EQ(layer, MakeLayer(1, 2, 3, 4.0, 5.0));
    EXPECT_NE(layer, MakeLayer(9, 2, 3, 4.0, 5.0));
    EXPECT_NE(layer, MakeLayer(1, 9, 3, 4.0, 5.0));
    EXPECT_NE(layer, MakeLayer(1, 2, 9, 4.0, 5.0));
    EXPECT_NE(layer, MakeLayer(1, 2, 3, 4.0 + 1e-15, 5.0));
    EXPECT_NE(layer, MakeLayer(1, 2, 3, 4.0, 5.0 + 1e-15));
}
