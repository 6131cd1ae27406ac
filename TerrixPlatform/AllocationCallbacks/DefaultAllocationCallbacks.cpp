#include <TerrixPlatform/AllocationCallbacks/AllocationCallbacks.h>

#include <cstdlib>

namespace TerrixExchange { namespace AllocationCallbacks {

void* New(std::size_t size) {
    // malloc(0) may return null; every successful New is a distinct pointer.
    void* pointer = std::malloc(size == 0 ? 1 : size);
    if (pointer == nullptr) throw std::bad_alloc();
    return pointer;
}

void Delete(void* pointer) noexcept { std::free(pointer); }

}}  // namespace TerrixExchange::AllocationCallbacks
