#include <TerrixExchange/sections/PileSoilPileInteractionAndPileScourSection.h>

namespace TerrixExchange {

bool operator==(const PileSoilPileInteractionAndPileScourSectionRecord& left,
                const PileSoilPileInteractionAndPileScourSectionRecord& right) {
    return left.number == right.number && left.text == right.text && left.value == right.value;
}

bool operator!=(const PileSoilPileInteractionAndPileScourSectionRecord& left,
                const PileSoilPileInteractionAndPileScourSectionRecord& right) {
    return !(left == right);
}

bool operator==(const PileSoilPileInteractionAndPileScourSection& left,
                const PileSoilPileInteractionAndPileScourSection& right) {
    return left.records == right.records;
}

bool operator!=(const PileSoilPileInteractionAndPileScourSection& left,
                const PileSoilPileInteractionAndPileScourSection& right) {
    return !(left == right);
}

}  // namespace TerrixExchange
