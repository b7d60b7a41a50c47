// Memory for the small objects that are made and dropped in great numbers, again and again: the items of
// lists and the places they stand in.
#pragma once

#include <cstddef>

namespace TESK {

// A base whose objects' memory is kept, up to a limit, for the next object of about that size. An object is
// deleted through its own type or a virtual destructor.
class Recycled {
public:
    static void* operator new(std::size_t size);
    static void operator delete(void* block, std::size_t size);

protected:
    ~Recycled() = default;
};

} // namespace TESK
