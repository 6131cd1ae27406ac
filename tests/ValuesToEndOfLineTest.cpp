#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;

namespace {

// A row of a key and then any number of values, as the miscellaneous soil
// layer values of a main layer are given.
struct KeyAndValues {
    int key = 0;
    std::vector<double> values;

    template <class Archive>
    void Serialize(Archive& archive) {
        archive.Row(key, ToEndOfLine(values));
    }
};

std::vector<KeyAndValues> ReadRows(const std::string& text, std::size_t count) {
    std::vector<KeyAndValues> rows;
    ReadText(text, [&](Importer& importer) {
        importer.SectionTitle("ROWS");
        importer.RecordVector(rows, count);
    });
    return rows;
}

}  // namespace

TEST(ValuesToEndOfLine, ReadsEveryNumberLeftOnTheLine) {
    const auto rows = ReadRows(
        "ROWS\n"
        "  1\n"
        "  2   0.5\n"
        "* a comment line\n"
        "  3   1 -2.5 3e2 4D-1\t5 6 7 8 9 10 11 12   \r\n",
        3);
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].key, 1);
    EXPECT_EQ(rows[0].values, std::vector<double>{});
    EXPECT_EQ(rows[1].key, 2);
    EXPECT_EQ(rows[1].values, std::vector<double>{0.5});
    EXPECT_EQ(rows[2].key, 3);
    EXPECT_EQ(rows[2].values, (std::vector<double>{1, -2.5, 300, 0.4, 5, 6, 7, 8, 9, 10, 11, 12}));
}

TEST(ValuesToEndOfLine, WritesEachValueInItsColumnOnOneLine) {
    std::vector<KeyAndValues> rows{{1, {}}, {2, {0.5, -2.0, 1e-9, 1.0 / 3.0, 5, 6, 7, 8, 9}}};
    const std::string text = WriteText([&](Exporter& exporter) { exporter.RecordVector(rows, rows.size()); });
    EXPECT_EQ(text,
              "         1\n"
              "         2       0.5      -2.0     1e-09 0.3333333333333333       5.0       6.0       7.0       8.0"
              "       9.0\n");
    const auto back = ReadRows("ROWS\n" + text, 2);
    ASSERT_EQ(back.size(), 2u);
    EXPECT_EQ(back[1].values, rows[1].values);
}
