#include <sstream>

#include <gtest/gtest.h>

#include <TerrixExchange/document/Terrix.h>

using namespace TerrixExchange;

TEST(Smoke, ExportVersion5) {
    Terrix profile(Version::V5);
    profile.GetTerrixInputData().controlSection.profileName = "NORTH-01";
    std::ostringstream out;
    profile.Export(out, "kN", "m", {"A header"}, true);
    std::cout << out.str();
    std::istringstream in(out.str());
    Terrix back;
    back.Import(in, "kN", "m");
    EXPECT_EQ(back.GetVersion(), Version::V5);
    EXPECT_EQ(back.GetTerrixInputData().controlSection.profileName, "NORTH-01");
}
