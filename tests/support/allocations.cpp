// SPDX-License-Identifier: MIT
#include "support/allocations.h"

#include <cstdlib>
#include <new>

namespace {

std::size_t count = 0;

} // namespace

void* operator new(std::size_t size)
{
    ++count;
    if (void* const place = std::malloc(size)) return place;
    throw std::bad_alloc();
}

void operator delete(void* place) noexcept
{
    std::free(place);
}

void operator delete(void* place, std::size_t) noexcept
{
    std::free(place);
}

std::size_t tarvelint::test::allocationsSoFar()
{
    return count;
}
