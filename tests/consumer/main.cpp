#include <fstream>
#include <iostream>

#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

int main(int argc, char** argv) {
    std::ifstream file(argc > 1 ? argv[1] : "");
    TerrixExchange::TerrixMultipleSoilProfiles profiles;
    try {
        profiles.Import(file);  // the units of each profile are deduced from its control section
    } catch (const std::exception& error) {
        std::cerr << error.what() << "\n";
        return 1;
    }
    for (const TerrixExchange::Terrix& profile : profiles.GetSoilProfiles()) {
        std::cout << "Profile '" << profile.GetTerrixInputData().controlSection.profileName << "'\n";
        for (const TerrixExchange::Layer& layer : profile.GetLayers(true))
            std::cout << "  layers " << layer.firstLayer << "-" << layer.firstLayer + layer.layerCount - 1 << ": "
                      << layer.zTop.GetValue() << " m to " << layer.zBottom.GetValue() << " m\n";
    }
}
