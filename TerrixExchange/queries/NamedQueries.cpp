#include <TerrixExchange/queries/NamedQueries.h>

namespace TerrixExchange {

const char* SoilTypeName(Terrix::SoilType type) {
    switch (type) {
        case Terrix::SoilType::Sand:
            return "Sand";
        case Terrix::SoilType::Clay:
            return "Clay";
        case Terrix::SoilType::Undefined:
            break;
    }
    return "Undefined";
}

}  // namespace TerrixExchange
