#include "foundation/arena.h"

#include <cstdint>
#include <cstring>
#include <iterator>
#include <new>
#include <utility>

#if defined(__SANITIZE_ADDRESS__)
#define ARENA_IS_GUARDED
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ARENA_IS_GUARDED
#endif
#endif
#ifdef ARENA_IS_GUARDED
#include <sanitizer/asan_interface.h>
#endif

namespace TESK {

namespace {

// Chunks begin at multiples of their size, so that the chunk of a piece is told from its address. A piece too
// large for what a chunk should hold gets a larger chunk of its own.
constexpr std::size_t chunk_size = std::size_t{1} << 16;
constexpr std::size_t largest_piece = chunk_size / 8;
constexpr std::size_t alignment = 8;

struct Chunk {
    std::size_t pieces;
    std::size_t used;
};

// For the address sanitizer what is not taken, and what was given back, is out of bounds. It finds the use of
// a dropped object for as long as no other takes its place, so under it no chunk is used anew.
#ifdef ARENA_IS_GUARDED
constexpr bool is_guarded = true;
constexpr std::size_t gap = alignment; // between two pieces
void allow(void* memory, std::size_t size) {
    ASAN_UNPOISON_MEMORY_REGION(memory, size);
}
void forbid(void* memory, std::size_t size) {
    ASAN_POISON_MEMORY_REGION(memory, size);
}
#else
constexpr bool is_guarded = false;
constexpr std::size_t gap = 0;
void allow(void*, std::size_t) {}
void forbid(void*, std::size_t) {}
#endif

Chunk* new_chunk(std::size_t size) {
    auto* chunk = new (::operator new(size, std::align_val_t(chunk_size))) Chunk{0, sizeof(Chunk)};
    forbid(chunk + 1, size - sizeof(Chunk));
    return chunk;
}

void delete_chunk(Chunk* chunk) {
    ::operator delete(chunk, std::align_val_t(chunk_size));
}

// The chunk that a thread takes pieces from, and a few empty ones: without them each record would have the
// heap return memory to the system and ask for it again.
class Chunks {
public:
    ~Chunks() {
        is_closed_ = true;
        leave_current();
        while (kept_count_ > 0)
            delete_chunk(kept_[--kept_count_]);
    }

    void* take(std::size_t size) {
        const std::size_t room = (size + alignment - 1) / alignment * alignment + gap;
        if (current_ == nullptr || current_->used + room > chunk_size) {
            leave_current();
            current_ = kept_count_ > 0 ? kept_[--kept_count_] : new_chunk(chunk_size);
        }
        void* piece = reinterpret_cast<char*>(current_) + current_->used;
        allow(piece, size);
        current_->used += room;
        ++current_->pieces;
        return piece;
    }

    // Takes a chunk that has lost its last piece.
    void empty(Chunk* chunk) {
        const bool has_usual_size = chunk->used > sizeof(Chunk);
        if (chunk == current_ && is_guarded)
            return;
        chunk->used = sizeof(Chunk);
        if (chunk == current_)
            return;
        if (has_usual_size && !is_guarded && !is_closed_ && kept_count_ < std::size(kept_))
            kept_[kept_count_++] = chunk;
        else
            delete_chunk(chunk);
    }

private:
    // The last piece of a chunk that was left takes it along.
    void leave_current() {
        Chunk* left = std::exchange(current_, nullptr);
        if (left != nullptr && left->pieces == 0)
            delete_chunk(left);
    }

    Chunk* current_ = nullptr;
    Chunk* kept_[16] = {};
    std::size_t kept_count_ = 0;
    bool is_closed_ = false;
};
thread_local Chunks chunks;

} // namespace

void* take_from_arena(std::size_t size) {
    if (size <= largest_piece)
        return chunks.take(size);
    Chunk* own = new_chunk(sizeof(Chunk) + size);
    allow(own + 1, size);
    own->pieces = 1;
    return own + 1;
}

void release_to_arena(void* memory, std::size_t size) {
    forbid(memory, size);
    auto* chunk = reinterpret_cast<Chunk*>(reinterpret_cast<std::uintptr_t>(memory) & ~(chunk_size - 1));
    if (--chunk->pieces == 0)
        chunks.empty(chunk);
}

void Arena_text::assign(std::string_view text) {
    char* copied = copy(text);
    drop();
    data_ = copied;
    size_ = text.size();
}

char* Arena_text::copy(std::string_view text) {
    return text.empty()
               ? nullptr
               : static_cast<char*>(std::memcpy(take_from_arena(text.size()), text.data(), text.size()));
}

void Arena_text::drop() {
    if (data_ != nullptr)
        release_to_arena(data_, size_);
}

} // namespace TESK
