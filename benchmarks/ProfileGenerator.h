#pragma once

// Realistic version 5 soil profiles for the benchmarks: a dozen main layers of
// sand and clay over 40 to 60 m, three pile diameters, manual curves of all
// six kinds and modification rows, with values rounded as a site engineer
// writes them. The same index always gives the same profile.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <list>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <TerrixExchange/document/Terrix.h>
#include <TerrixExchange/document/TerrixMultipleSoilProfiles.h>

namespace TerrixExchange { namespace Benchmarks {

class ProfileGenerator {
public:
    explicit ProfileGenerator(std::uint32_t index) : random_(index), index_(index) {}

    Terrix Generate() {
        Terrix profile(Version::V5, Revision::WithAK);
        TerrixInputData& data = profile.GetTerrixInputData();

        const int mainLayers = Uniform(10, 14);
        const std::vector<double> diameters = {1.524, 1.829, 2.134, 2.438};
        ControlSection& control = data.controlSection;
        control.profileName = "LOC-" + std::to_string(index_ % 100000);
        control.CONFRC = 1.0;
        control.CONLTH = 1.0;
        control.NUMLAYM = mainLayers;
        control.NUMDSP = 2;
        control.ZCYCL = Round(Real(10.0, 25.0), 1);
        control.SUSTIF = 96000.0;  // 96 kPa
        control.JPRINT = 1;

        for (double d : diameters) data.pileDiametersAndGroupEffectsSection.diameters.push_back(Length(d));
        data.pileDiametersAndGroupEffectsSection.ESOL0 = Round(Real(20.0, 40.0), 1) * 1e6;
        data.pileDiametersAndGroupEffectsSection.POSAVR = 0.35;
        data.soilSurfaceAndGroundWaterSection.SCRGEN = Round(Real(0.0, 2.0), 2);
        data.soilSurfaceAndGroundWaterSection.SCRLOC = Round(Real(0.0, 3.0), 2);
        data.soilSurfaceAndGroundWaterSection.SLOPE = 30.0;

        // Main layers, their properties, axial data and curve codes.
        double top = 0.0;
        int firstLayer = 1;
        std::vector<std::pair<int, double>> pyLayers, tzLayers, qzLayers;
        for (int main = 1; main <= mainLayers; ++main) {
            const bool clay = Uniform(0, 1) == 1;
            const double bottom = Round(top + Real(2.0, 6.0), 1);
            const double middle = (top + bottom) / 2.0;
            const int subdivision = Uniform(2, 4);

            SoilMainLayersAndPropertiesSectionRecord properties;
            properties.MAIN = main;
            properties.ZBOTM = Length(bottom);
            properties.GAMTOT = Round(clay ? Real(17.0, 20.0) : Real(18.5, 21.0), 1);
            properties.CPTTOP = Round(clay ? Real(0.5, 3.0) : Real(5.0, 30.0), 1);
            properties.CPTBOT = Round(properties.CPTTOP * Real(1.0, 1.5), 1);
            properties.PHI = clay ? 0.0 : Round(Real(28.0, 38.0), 1);
            properties.DR = clay ? 0.0 : Round(Real(0.4, 0.95), 2);
            properties.SUTOP = clay ? Round(Real(10.0, 150.0), 1) : 0.0;
            properties.SUBOT = clay ? Round(properties.SUTOP + 1.6 * (bottom - top), 1) : 0.0;
            properties.IP = clay ? Uniform(15, 45) : 0;
            properties.EPSC = clay ? 0.01 : 0.0;
            properties.API_J = clay ? 0.5 : 0.0;
            data.soilMainLayersAndPropertiesSection.records.push_back(properties);

            SkinFrictionAndTipResistanceSectionV5Record axial;
            axial.MAIN_LAYER = main;
            axial.SKINC_TOP = Round(clay ? properties.SUTOP * 0.8 : 0.6 * 9.0 * top * 0.6, 1);
            axial.SKINC_BOT = Round(clay ? properties.SUBOT * 0.8 : 0.6 * 9.0 * bottom * 0.6, 1);
            axial.SKINT_TOP = axial.SKINC_TOP;
            axial.SKINT_BOT = axial.SKINC_BOT;
            axial.SIGTIP_TOP = Round(clay ? 9.0 * properties.SUTOP : 40.0 * 9.0 * top, 1);
            axial.SIGTIP_BOT = Round(clay ? 9.0 * properties.SUBOT : 40.0 * 9.0 * bottom, 1);
            axial.G0_FACT = 1.0;
            axial.TRES_TMAX = 0.9;
            data.skinFrictionAndTipResistanceSectionV5.records.push_back(axial);

            MainLayersSubdivisionAndPyTzQzCodesSectionRecord codes;
            codes.MAIN_LAYER = main;
            codes.ZBOTM = Length(bottom);
            codes.SUBDIVISION = subdivision;
            codes.PYCODE = clay && main % 3 == 1 ? 0 : 214;
            codes.TZCODE = !clay && main % 3 == 2 ? 0 : 214;
            codes.QZCODE = main == mainLayers ? 0 : 214;
            codes.MISC_VALUES = {0.0, 0.0, 0.0, 0.0, 0.0};
            data.mainLayersSubdivisionAndPyTzQzCodesSection.records.push_back(codes);

            for (int layer = firstLayer; layer < firstLayer + subdivision; ++layer) {
                if (codes.PYCODE == 0) pyLayers.emplace_back(layer, middle);
                if (codes.TZCODE == 0) tzLayers.emplace_back(layer, middle);
                if (codes.QZCODE == 0) qzLayers.emplace_back(layer, middle);
            }
            firstLayer += subdivision;
            top = bottom;
        }
        const int lastLayer = firstLayer - 1;
        auto& skin = data.skinFrictionAndTipResistanceSectionV5;
        skin.DIAMP = Length(2.134);
        skin.WALL = Length(0.065);
        skin.ZTIP = Length(Round(top - 2.0, 1));
        skin.MATPIL = 1;

        // Manual curves: soft clay P-Y, sand T-Z, clay Q-Z at every diameter.
        for (const auto& [layer, z] : pyLayers)
            for (double d : diameters) data.manualPyLateralResistanceDataSection.records.push_back(PyCurve(layer, z, d));
        for (const auto& [layer, z] : tzLayers)
            for (double d : diameters) data.manualTzSkinFrictionDataSection.records.push_back(TzCurve(layer, z, d));
        for (const auto& [layer, z] : qzLayers)
            for (double d : diameters) data.manualQzPileTipResistanceDataSection.records.push_back(QzCurve(layer, z, d));
        for (double d : diameters) {
            data.manualMthetaMomentDataSection.records.push_back(
                Curve<ManualMthetaMomentDataSectionRecord>(lastLayer, d, {0.0, 0.001, 0.005, 0.01, 0.02},
                                                           {0.0, 55.0, 160.0, 210.0, 225.0}, d));
            data.manualBSYBaseShearDataSection.records.push_back(
                Curve<ManualBSYBaseShearDataSectionRecord>(lastLayer, d, {0.0, 0.005, 0.02, 0.05},
                                                           {0.0, 190.0, 420.0, 510.0}, d * d));
            data.manualBMthetaMomentDataSection.records.push_back(
                Curve<ManualBMthetaMomentDataSectionRecord>(lastLayer, d, {0.0, 0.001, 0.005, 0.02},
                                                            {0.0, 330.0, 880.0, 1100.0}, d * d * d));
        }
        control.NUMDM = static_cast<int>(diameters.size());
        control.NUMBS = static_cast<int>(diameters.size());
        control.NUMBM = static_cast<int>(diameters.size());

        // Modification rows: a few specific ones, then everything else.
        PyLateralResistanceDataModificationSectionRecord py;
        py.LAY1 = 1;
        py.LAY2 = 2;
        py.modification.Y_GAP = 0.02;
        data.pyLateralResistanceDataModificationSection.records = {py, Everything<decltype(py)>()};
        TzSkinFrictionDataModificationSectionRecord tz;
        tz.LAY1 = 1;
        tz.LAY2 = lastLayer;
        tz.DIAM = Length(diameters.back());
        tz.modification.TNS_FCT = 0.8;
        data.tzSkinFrictionDataModificationSection.records = {tz, Everything<decltype(tz)>()};
        data.qzPileTipResistanceDataModificationSection.records = {
            Everything<QzPileTipResistanceDataModificationSectionRecord>()};
        data.mthetaMomentDataModificationSection.records = {
            Everything<MthetaMomentDataModificationSectionRecord>()};
        data.bsyBaseShearDataModificationSection.records = {Everything<BSYBaseShearDataModificationSectionRecord>()};
        data.bmThetaMomentDataModificationSection.records = {
            Everything<BMthetaMomentDataModificationSectionRecord>()};

        GivenSoilDisplacementsAndOpenHoleSectionRecord displacement;
        displacement.HOLE_DIAM = Round(Real(0.0, 3.0), 2);
        data.givenSoilDisplacementsAndOpenHoleSection.records = {displacement, displacement};
        data.givenSoilDisplacementsAndOpenHoleSection.records[1].ZLEV = 5.0;
        return profile;
    }

private:
    using Length = Units::Runtime::Quantity<Units::Runtime::LengthPhenomenon>;
    using Stress = Units::Runtime::Quantity<Units::Runtime::StressPhenomenon>;

    int Uniform(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
    double Real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random_); }
    // Values as the file gives them: a few decimals in kN and m.
    static double Round(double value, int decimals) {
        const double scale = std::pow(10.0, decimals);
        return std::round(value * scale) / scale;
    }

    // A curve written in kN and m and held in N and m: `resistances` in kN
    // (kN/m2, kNm) times `scale`, to a tenth.
    template <class Record>
    Record Curve(int layer, double diameter, std::vector<double> displacements, const std::vector<double>& resistances,
                 double scale) {
        Record record;
        record.LAY = layer;
        record.DIAM = Length(diameter);
        record.displacements = std::move(displacements);
        for (double r : resistances) record.resistances.push_back(std::round(r * scale * 10.0) * 100.0);
        return record;
    }

    // Matlock's soft clay curve, p per unit of pile area.
    ManualPyLateralResistanceDataSectionRecord PyCurve(int layer, double z, double diameter) {
        const double su = 12.0 + 1.6 * z;
        const double pu = std::min(3.0 + 7.5 * z / su + 0.5 * z / diameter, 9.0) * su;
        const double yc = 2.5 * 0.02 * diameter;
        std::vector<double> y, p;
        for (double ratio : {0.0, 0.1, 0.3, 1.0, 2.0, 3.0, 5.0, 8.0, 12.0, 15.0}) {
            y.push_back(Round(ratio * yc, 5));
            p.push_back(std::min(0.5 * pu * std::cbrt(ratio), pu));
        }
        return Curve<ManualPyLateralResistanceDataSectionRecord>(layer, diameter, y, p, 1.0);
    }

    ManualTzSkinFrictionDataSectionRecord TzCurve(int layer, double z, double diameter) {
        const double tmax = 0.8 * 0.56 * 9.5 * z * std::tan(31.0 * std::acos(-1.0) / 180.0);
        return Curve<ManualTzSkinFrictionDataSectionRecord>(layer, diameter, {0.0, 0.00127, 0.00254, 0.0254, 0.1},
                                                            {0.0, 0.5 * tmax, tmax, tmax, tmax}, 1.0);
    }

    ManualQzPileTipResistanceDataSectionRecord QzCurve(int layer, double z, double diameter) {
        const double qp = 9.0 * (80.0 + 3.2 * z);
        std::vector<double> zs, qs;
        for (auto [zd, ratio] : {std::pair{0.0, 0.0}, {0.002, 0.25}, {0.013, 0.5}, {0.042, 0.75}, {0.073, 0.9},
                                 {0.1, 1.0}}) {
            zs.push_back(Round(zd * diameter, 5));
            qs.push_back(ratio * qp);
        }
        return Curve<ManualQzPileTipResistanceDataSectionRecord>(layer, diameter, zs, qs, 1.0);
    }

    template <class Record>
    static Record Everything() {
        return Record();  // 0 0 0.0 with the identity factors
    }

    std::mt19937 random_;
    std::uint32_t index_;
};

// The benchmarks' stream: profiles 0 to count - 1, each in kN and m, the
// stream's two header lines before the first.
inline TerrixMultipleSoilProfiles GenerateProfiles(std::uint32_t count) {
    TerrixMultipleSoilProfiles profiles;
    for (std::uint32_t i = 0; i < count; ++i) profiles.AddSoilProfile(ProfileGenerator(i).Generate());
    return profiles;
}
inline const std::list<std::string> streamHeaderLines = {"Benchmark stream", "Generated North Sea profiles"};

}}  // namespace TerrixExchange::Benchmarks
