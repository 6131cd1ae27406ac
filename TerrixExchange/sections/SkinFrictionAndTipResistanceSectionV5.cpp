#include <TerrixExchange/sections/SkinFrictionAndTipResistanceSectionV5.h>

#include <algorithm>

#include <TerrixExchange/archive/Archives.h>

namespace TerrixExchange {

namespace {

using Record = SkinFrictionAndTipResistanceSectionV5Record;

}  // namespace

template <class Archive>
void Record::Serialize(Archive& archive) {
    // Skin friction, tip resistance and TZZRES are kept as written.
    archive.Row(Column("MAIN LAYER", MAIN_LAYER), Column("CALC METH", CALC_METH), PlainNumber("SKINC TOP", SKINC_TOP),
                PlainNumber("SKINC BOT", SKINC_BOT), PlainNumber("SKINT TOP", SKINT_TOP),
                PlainNumber("SKINT BOT", SKINT_BOT), PlainNumber("SIGTIP TOP", SIGTIP_TOP),
                PlainNumber("SIGTIP BOT", SIGTIP_BOT), Column("G0 FACT", G0_FACT), Column("TRES/TMAX", TRES_TMAX),
                PlainNumber("TZZRES", TZZRES));
}

#define INSTANTIATE(Archive) template void Record::Serialize(Archive&);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

SkinFrictionAndTipResistanceSectionV5::const_iterator SkinFrictionAndTipResistanceSectionV5::FindLayer(
    const Layer& layer) const {
    return std::find_if(records.begin(), records.end(),
                        [&layer](const Record& record) { return record.MAIN_LAYER == layer.mainLayer; });
}

template <class Archive>
void SkinFrictionAndTipResistanceSectionV5::Serialize(Archive& archive, std::size_t count) {
    const auto guard = archive.BeginSection("SKIN FRICTION AND TIP RESISTANCE (T-Z/Q-Z) SECTION");
    archive.CommentLine("*  Auto axial capacity calculations currently not supported by Kesta, dummy values used");
    archive.RequiredParameter(DIAMP, "DIAMP", "Pile outside  diameter  for axial capacity calculations");
    archive.RequiredParameter(WALL, "WALL", "Pile tip wall thickness for axial capacity calculations");
    archive.RequiredParameter(ZTIP, "ZTIP", "Pile tip Z-level for axial capacity calculations");
    archive.RequiredParameter(MATPIL, "MATPIL", "Pile wall material type : 1=steel 2=concrete");
    archive.CommentLine("*  Calculation methods : 0=Given values  1=API-93  2=ICP-05  3=NGI-05");
    archive.TableHeader("MAIN   CALC  SKINC  SKINC  SKINT  SKINT  SIGTIP SIGTIP   G0   TRES/  TZZRES");
    archive.TableHeader("LAYER  METH   TOP    BOT    TOP    BOT     TOP   BOT    FACT  TMAX");
    archive.RecordVector(records, count);
}

#define INSTANTIATE(Archive) template void SkinFrictionAndTipResistanceSectionV5::Serialize(Archive&, std::size_t);
TERRIX_FOR_EVERY_ARCHIVE(INSTANTIATE)
#undef INSTANTIATE

}  // namespace TerrixExchange
