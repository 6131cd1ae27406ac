#pragma once

#include <type_traits>
#include <utility>

namespace TerrixExchange {

// Equality from one list of members. A record, section or answer lists its
// members once, as
//   auto Fields() const { return std::tie(A, B, C); }
// and compares equal to another of its class when every member does. The
// comparison is exact: values are compared as the doubles they are, so a NaN
// equals nothing, not even itself.
template <class T, class = decltype(std::declval<const T&>().Fields())>
bool operator==(const T& left, const T& right) {
    return left.Fields() == right.Fields();
}

template <class T, class = decltype(std::declval<const T&>().Fields())>
bool operator!=(const T& left, const T& right) {
    return !(left == right);
}

}  // namespace TerrixExchange
