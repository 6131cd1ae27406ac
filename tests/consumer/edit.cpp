// Sets the friction angle of the second main layer of a TERRIX file and
// writes the file back: only the line that holds it is new.
#include <fstream>
#include <iterator>
#include <sstream>

#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

int main(int argc, char** argv) {
    if (argc != 3) return 2;  // edit-profile IN OUT
    std::ifstream in(argv[1], std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    std::istringstream stream(text);
    TerrixExchange::TerrixMultipleSoilProfiles profiles;
    profiles.Import(stream);
    profiles.GetSoilProfiles().at(0).GetTerrixInputData().soilMainLayersAndPropertiesSection.records.at(1).PHI = 5.0;
    std::ofstream out(argv[2], std::ios::binary);
    return profiles.ExportKeepingLines(out, text) ? 0 : 1;
}
