// Memory for the small objects of one structure, which are made in great numbers, stand beside each other,
// and go together: the entries of a record, their texts, and their places in lists.
#pragma once

#include <cstddef>
#include <string_view>

namespace TESK {

// Memory from the thread's current chunk, at a multiple of 8. What the chunk holds is given back in any
// order, each piece with its size and in the thread that took it (or when that thread has ended); the chunk
// goes, or is used anew, with the last of them. So one object that stays keeps its whole chunk: lasting
// objects have no place here.
void* take_from_arena(std::size_t size);
void release_to_arena(void* memory, std::size_t size);

// A base for objects that live in the arena. They are deleted through their own type or a virtual destructor.
class Arena_object {
public:
    static void* operator new(std::size_t size) { return take_from_arena(size); }
    static void operator delete(void* object, std::size_t size) {
        if (object != nullptr)
            release_to_arena(object, size);
    }

protected:
    ~Arena_object() = default;
};

// A text of any bytes in the arena.
class Arena_text {
public:
    explicit Arena_text(std::string_view text) : data_(copy(text)), size_(text.size()) {}
    ~Arena_text() { drop(); }
    Arena_text(const Arena_text&) = delete;
    Arena_text& operator=(const Arena_text&) = delete;

    void assign(std::string_view text);
    operator std::string_view() const { return {data_, size_}; }

private:
    static char* copy(std::string_view text);
    void drop();

    char* data_; // null for an empty text
    std::size_t size_;
};

} // namespace TESK
