#include <TerrixExchange/sections/PileSoilPileInteractionAndPileScourSection.h>

namespace TerrixExchange {

}  // namespace TerrixExchange
