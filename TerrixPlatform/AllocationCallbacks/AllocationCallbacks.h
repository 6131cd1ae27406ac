#pragma once

#include <cstddef>
#include <new>

namespace TerrixExchange {

// The allocation service through which every object of the library takes and
// gives back heap memory. The library ships a default implementation on
// malloc and free in its own static library (TerrixExchange::DefaultAllocation);
// a host replaces it at link time by defining these two functions itself.
namespace AllocationCallbacks {

// Memory for `size` bytes, suitably aligned for any object; throws
// std::bad_alloc when none is to be had.
void* New(std::size_t size);
// Gives back memory from New; a null pointer is ignored.
void Delete(void* pointer) noexcept;

}  // namespace AllocationCallbacks
}  // namespace TerrixExchange

// Routes a class's own operator new and delete, single and array, through
// the allocation service. Placed in the public part of every library class.
#define TERRIX_ALLOCATION_OPERATORS                                                           \
    static void* operator new(std::size_t size) { return ::TerrixExchange::AllocationCallbacks::New(size); } \
    static void* operator new[](std::size_t size) { return ::TerrixExchange::AllocationCallbacks::New(size); } \
    static void operator delete(void* pointer) noexcept { ::TerrixExchange::AllocationCallbacks::Delete(pointer); } \
    static void operator delete[](void* pointer) noexcept { ::TerrixExchange::AllocationCallbacks::Delete(pointer); } \
    static void* operator new(std::size_t, void* place) noexcept { return place; }            \
    static void operator delete(void*, void*) noexcept {}
