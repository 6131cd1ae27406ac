#include <fstream>
#include <iostream>

#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: profile-info FILE\n";
        return 2;
    }
    std::ifstream file(argv[1]);
    TerrixExchange::TerrixMultipleSoilProfiles profiles;
    try {
        profiles.Import(file);  // each profile's units are deduced from its control section
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
    for (const TerrixExchange::Terrix& profile : profiles.GetSoilProfiles()) {
        const auto& units = profile.GetUnitSystem();
        const auto& control = profile.GetTerrixInputData().controlSection;
        std::cout << "Profile '" << control.profileName << "', version " << static_cast<int>(profile.GetVersion())
                  << ", read in " << units.GetForceUnitName() << " and " << units.GetLengthUnitName() << "\n"
                  << "Unit weight of water: " << control.GAMMAW.GetValue() << " N/m3\n";
    }
}
