// The importer and exporter at the level of lines, parameters, records and
// vectors, with a small section and record of the tests' own.

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include "TestSupport.h"

using namespace TerrixExchange;
using namespace TerrixExchange::Testing;
using namespace TerrixExchange::Units::Runtime;

namespace {

// A row of three columns: an integer, a length and a plain number, and an
// optional number standing between the last two.
struct SampleRecord {
    int number = 0;
    Quantity<LengthPhenomenon> level;
    boost::optional<double> modulus;
    double ratio = 0.0;

    template <class Archive>
    void Serialize(Archive& archive) {
        archive.Row(number, level, modulus, ratio);
    }
};

// A section with two parameters and a table.
struct SampleSection {
    double CONFRC = 0.0;
    int NUMROW = 0;
    std::vector<SampleRecord> records;

    template <class Archive>
    void Serialize(Archive& archive) {
        const auto guard = archive.BeginSection("SAMPLE SECTION");
        archive.RequiredParameter(CONFRC, "CONFRC", "A FACTOR");
        archive.RequiredParameter(NUMROW, "NUMROW", "NUMBER OF ROWS");
        archive.TableHeader("NUMBER    LEVEL     RATIO");
        archive.RecordVector(records, static_cast<std::size_t>(NUMROW > 0 ? NUMROW : 0));
    }
};

SampleSection ReadSample(const std::string& text, const std::string& force = "kN", const std::string& length = "m") {
    SampleSection section;
    ReadText(text, [&](Importer& importer) { section.Serialize(importer); }, force, length);
    return section;
}

const std::string sampleText =
    "*** SAMPLE SECTION ***\n"
    "       1.5 CONFRC  A FACTOR\n"
    "         2 NUMROW  NUMBER OF ROWS\n"
    "NUMBER    LEVEL     RATIO\n"
    "         1      -2.5      0.25\n"
    "         2     -10.0    2000.0      0.75\n";

}  // namespace

TEST(Archive, ParametersAndRecordsReadTheirValuesExactly) {
    const SampleSection section = ReadSample(sampleText, "kN", "mm");
    EXPECT_EQ(section.CONFRC, 1.5);
    EXPECT_EQ(section.NUMROW, 2);
    ASSERT_EQ(section.records.size(), 2u);
    EXPECT_EQ(section.records[0].number, 1);
    EXPECT_EQ(section.records[0].level.GetValue(), -0.0025);
    EXPECT_FALSE(section.records[0].modulus);
    EXPECT_EQ(section.records[0].ratio, 0.25);
    EXPECT_EQ(section.records[1].level.GetValue(), -0.01);
    ASSERT_TRUE(section.records[1].modulus);
    EXPECT_EQ(*section.records[1].modulus, 2000.0);
    EXPECT_EQ(section.records[1].ratio, 0.75);
}

TEST(Archive, ExportWritesColumnsOfTenAndReadsBackTheSameText) {
    SampleSection section = ReadSample(sampleText);
    const std::string written = WriteText([&](Exporter& exporter) { section.Serialize(exporter); });
    EXPECT_EQ(written,
              "*** SAMPLE SECTION            ***\n"
              "       1.5 CONFRC  A FACTOR\n"
              "         2 NUMROW  NUMBER OF ROWS\n"
              "NUMBER    LEVEL     RATIO\n"
              "         1      -2.5      0.25\n"
              "         2     -10.0    2000.0      0.75\n");
    SampleSection again = ReadSample(written);
    EXPECT_EQ(WriteText([&](Exporter& exporter) { again.Serialize(exporter); }), written);
}

TEST(Archive, IntegerColumnsAreTruncatedTowardZero) {
    const SampleSection section = ReadSample(
        "SAMPLE SECTION\n"
        "       1.5 CONFRC  A FACTOR\n"
        "       2.9 NUMROW  NUMBER OF ROWS\n"
        "NUMBER    LEVEL     RATIO\n"
        "       3.9       1.0       1.0\n"
        "      -3.9       1.0       1.0\n");
    EXPECT_EQ(section.NUMROW, 2);
    EXPECT_EQ(section.records[0].number, 3);
    EXPECT_EQ(section.records[1].number, -3);
}

TEST(Archive, CommentLinesBetweenRowsAreSkipped) {
    const SampleSection section = ReadSample(
        "SAMPLE SECTION\n"
        "       1.5 CONFRC  A FACTOR\n"
        "         2 NUMROW  NUMBER OF ROWS\n"
        "NUMBER    LEVEL     RATIO\n"
        "         1      -2.5      0.25\n"
        "* the second row\n"
        "         2     -10.0      0.75\n");
    ASSERT_EQ(section.records.size(), 2u);
    EXPECT_EQ(section.records[1].ratio, 0.75);
}

TEST(Archive, AnEmptyTableReadsNothingAndLeavesThePositionAfterItsHeader) {
    SampleSection section;
    section.records.resize(3);
    ReadText(
        "SAMPLE SECTION\n"
        "       1.5 CONFRC  A FACTOR\n"
        "         0 NUMROW  NUMBER OF ROWS\n"
        "NUMBER    LEVEL     RATIO\n"
        "\n"
        "SAMPLE SECTION\n",
        [&](Importer& importer) {
            section.Serialize(importer);
            EXPECT_EQ(importer.GetLineCounter(), 5u);
            importer.BlankLine();
            importer.SectionTitle("SAMPLE SECTION");
        });
    EXPECT_TRUE(section.records.empty());
}

TEST(Archive, TitlesAreFoundBareOrDecoratedInBothTitleModes) {
    for (bool titleMode : {true, false}) {
        for (const std::string& line :
             {std::string("SAMPLE SECTION"), std::string("*** SAMPLE SECTION ***"), std::string("**SAMPLE SECTION"),
              std::string("  SAMPLE SECTION   *****"), std::string("*** SAMPLE SECTION            ***")}) {
            SCOPED_TRACE(line);
            ReadText(line + "\nnext\n", [&](Importer& importer) {
                importer.SectionTitle("SAMPLE SECTION");
                EXPECT_EQ(importer.GetLineCounter(), 2u);
            }, "kN", "m", titleMode);
        }
    }
    // Title mode on matches the words.
    ReadText("SAMPLE     SECTION\n", [](Importer& importer) { importer.SectionTitle("SAMPLE SECTION"); });
}

TEST(Archive, ASectionThatFailsPutsTheImporterBackAtItsStart) {
    ReadText("*** SAMPLE SECTION ***\n       1.5 CONFRC  A FACTOR\n      ABC NUMROW  NUMBER OF ROWS\n",
             [](Importer& importer) {
                 SampleSection section;
                 EXPECT_THROW(section.Serialize(importer), ImportError);
                 EXPECT_EQ(importer.GetLineCounter(), 1u);
                 importer.SectionTitle("SAMPLE SECTION");
                 EXPECT_EQ(importer.GetLineCounter(), 2u);
             });
}

TEST(Archive, BlankLinesSeparateSections) {
    ReadText("   \t\r\nnext\n", [](Importer& importer) {
        importer.BlankLine();
        EXPECT_EQ(importer.GetLineCounter(), 2u);
    });
}

TEST(Archive, QuotedTextsFillTwentyColumns) {
    const std::string written = WriteText([](Exporter& exporter) {
        exporter.StringParameter("NORTH-0001", "NAME OF THIS SOIL PROFILE, MAX 10 CHARACTERS");
        exporter.StringParameter("O'NEIL", "NAME");
    });
    EXPECT_EQ(written,
              " 'NORTH-0001'        NAME OF THIS SOIL PROFILE, MAX 10 CHARACTERS\n"
              " 'O''NEIL'           NAME\n");
    ReadText(written, [](Importer& importer) {
        std::string name;
        importer.StringParameter(name, "");
        EXPECT_EQ(name, "NORTH-0001");
        importer.StringParameter(name, "");
        EXPECT_EQ(name, "O'NEIL");
    });
}

TEST(Archive, VectorsWrapAfterColumnEightyWithTheCountRestartingAtZero) {
    auto values = [](int count) {
        std::vector<double> result;
        for (int i = 1; i <= count; ++i) result.push_back(i * 0.5);
        return result;
    };
    auto write = [](std::vector<double> vector) {
        return WriteText([&](Exporter& exporter) { exporter.Vector(vector, vector.size(), "COMMENT"); });
    };
    EXPECT_EQ(write(values(8)), "       0.5       1.0       1.5       2.0       2.5       3.0       3.5       4.0 COMMENT\n");
    EXPECT_EQ(write(values(12)),
              "       0.5       1.0       1.5       2.0       2.5       3.0       3.5       4.0\n"
              "       4.5       5.0       5.5       6.0 COMMENT\n");
    EXPECT_EQ(write(values(20)),
              "       0.5       1.0       1.5       2.0       2.5       3.0       3.5       4.0\n"
              "       4.5       5.0       5.5       6.0       6.5       7.0       7.5       8.0       8.5\n"
              "       9.0       9.5      10.0 COMMENT\n");
    EXPECT_EQ(write({}), " COMMENT\n");

    // Read back from the wrapped text, from one line, and from a line a value.
    for (const std::string& text : {write(values(20)),
                                    std::string("0.5 1 1.5 2 2.5 3 3.5 4 4.5 5 5.5 6 6.5 7 7.5 8 8.5 9 9.5 10 COMMENT\n"),
                                    std::string("0.5\n1\n1.5\n2\n2.5\n3\n3.5\n4\n4.5\n5\n5.5\n6\n6.5\n7\n7.5\n8\n"
                                                "* a comment inside the vector\n8.5\n9\n9.5\n10\n")}) {
        ReadText(text + "next\n", [&](Importer& importer) {
            std::vector<double> read;
            importer.Vector(read, 20, "COMMENT");
            EXPECT_EQ(read, values(20));
        });
    }
}

TEST(Archive, RealsAreWrittenWithTheShortestTextThatReadsBackExactly) {
    // A value in a column of 10 (the file's) and of 7 (the P-Y modification
    // rows): the usual plain or exponent form when it fits the 9 or 6
    // characters after the blank, else a shorter text of the same number;
    // only when none fits does the column widen.
    const struct {
        double value;
        const char* inTen;
        const char* inSeven;
    } cases[] = {
        {0.1, "0.1", "0.1"},
        {100.0, "100.0", "100.0"},
        {-0.0, "-0.0", "-0.0"},
        {12.345, "12.345", "12.345"},
        {1234567.0, "1234567.0", "1234567.0"},
        {12345678.0, "12345678.", "12345678.0"},
        {123456789.0, "123456789", "123456789.0"},
        {1.0e-7, "0.0000001", "1e-07"},
        {1.0e-8, "1e-08", "1e-08"},
        {0.00125, "0.00125", ".00125"},
        {1.2345e-5, "1.2345e-5", "1.2345e-05"},
        {2.5e12, "2.5e+12", "2.5e12"},
        {1.234567e10, "1234567e4", "1.234567e+10"},
        {1.5e300, "1.5e+300", "15e299"},
        {0.1 + 0.2, "0.30000000000000004", "0.30000000000000004"},
        {std::nan(""), "NaN", "NaN"},
        {-std::nan(""), "-NaN", "-NaN"},
        {-std::numeric_limits<double>::infinity(), "-Inf", "-Inf"},
    };
    for (const auto& c : cases) {
        for (const int width : {10, 7}) {
            const std::string text = WriteText([&](Exporter& exporter) {
                exporter.SetColumnWidth(width);
                exporter.Vector(std::vector<double>{c.value}, 1, "");
            });
            const std::string expected = width == 10 ? c.inTen : c.inSeven;
            const std::size_t field = static_cast<std::size_t>(width - 1);
            EXPECT_EQ(text, " " + std::string(field > expected.size() ? field - expected.size() : 0, ' ') + expected + "\n")
                << c.value;
        }
    }

    // Any double reads back as itself, through any unit system.
    std::mt19937_64 random(42);
    std::uniform_real_distribution<double> exponent(-12.0, 12.0);
    std::vector<double> values;
    for (int i = 0; i < 2000; ++i) values.push_back(std::pow(10.0, exponent(random)) * (i % 2 ? 1 : -1));
    for (const auto& units : {std::make_pair("kN", "m"), std::make_pair("N", "mm"), std::make_pair("lbf", "ft")}) {
        std::vector<Quantity<StressPhenomenon>> stresses;
        for (double value : values) stresses.emplace_back(value);
        const std::string text = WriteText(
            [&](Exporter& exporter) { exporter.Vector(stresses, stresses.size(), "STRESSES"); }, units.first,
            units.second);
        ReadText(text, [&](Importer& importer) {
            std::vector<Quantity<StressPhenomenon>> read;
            importer.Vector(read, stresses.size(), "STRESSES");
            ASSERT_EQ(read.size(), stresses.size());
            for (std::size_t i = 0; i < read.size(); ++i)
                ASSERT_EQ(read[i].GetValue(), stresses[i].GetValue()) << units.first << " " << units.second << " #" << i;
        }, units.first, units.second);
    }
}

TEST(Archive, NumbersInTheFormsAFortranProgramWrites) {
    ReadText("1 -2. .5 +3.25 1.5E3 2.5d-2 -1D+2 nan INF -Infinity -NaN COMMENT\n", [](Importer& importer) {
        std::vector<double> values;
        importer.Vector(values, 11, "COMMENT");
        EXPECT_EQ(values[0], 1.0);
        EXPECT_EQ(values[1], -2.0);
        EXPECT_EQ(values[2], 0.5);
        EXPECT_EQ(values[3], 3.25);
        EXPECT_EQ(values[4], 1500.0);
        EXPECT_EQ(values[5], 0.025);
        EXPECT_EQ(values[6], -100.0);
        EXPECT_TRUE(std::isnan(values[7]));
        EXPECT_EQ(values[8], std::numeric_limits<double>::infinity());
        EXPECT_EQ(values[9], -std::numeric_limits<double>::infinity());
        // The sign of a NaN is kept, as every bit of a value is.
        EXPECT_TRUE(std::isnan(values[10]) && std::signbit(values[10]));
        EXPECT_FALSE(std::signbit(values[7]));
    });
    // Not numbers: a number glued to text, two points, an exponent without
    // digits, a value out of range.
    for (const char* text : {"1.0ABC\n", "1.2.3\n", "1e\n", "1e400\n", "0x10\n"}) {
        SCOPED_TRACE(text);
        EXPECT_THROW(ReadText(text, [](Importer& importer) {
                         std::vector<double> values;
                         importer.Vector(values, 1, "");
                     }),
                     ImportError);
    }
}

TEST(Archive, WindowsLineEndsAndTabsReadLikeAnyOther) {
    std::string text = sampleText;
    std::string crlf;
    for (char c : text) crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
    std::string tabs = crlf;
    for (char& c : tabs)
        if (c == ' ') c = '\t';
    for (const std::string& variant : {crlf, tabs}) {
        const SampleSection section = ReadSample(variant);
        ASSERT_EQ(section.records.size(), 2u);
        EXPECT_EQ(section.records[1].ratio, 0.75);
    }
}
