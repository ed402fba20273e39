#pragma once

#include <cstdlib>
#include <new>
#include <utility>

/// Values of a plain type one behind the other, in memory of the C library: large blocks of it grow
/// in place or are moved by the system without being copied.
template <typename T> class Column
{
public:
    Column() = default;
    ~Column() { std::free(values); }
    Column(const Column &) = delete;
    Column &operator=(const Column &) = delete;

    std::size_t size() const { return used; }
    T *data() { return values; }
    const T *data() const { return values; }

    void append(T value)
    {
        if (used == room)
            grow(used + 1);
        values[used++] = value;
    }

    /// Makes room for so many more, and returns where they go; they count from then on.
    T *extend(std::size_t more)
    {
        if (room - used < more)
            grow(used + more);
        T *const added = values + used;
        used += more;
        return added;
    }

    void reserve(std::size_t size)
    {
        if (size > room)
            setRoom(size);
    }

    /// Gives back what is not used.
    void squeeze()
    {
        if (used < room)
            setRoom(used);
    }

private:
    void grow(std::size_t least)
    {
        constexpr std::size_t first = 1024;
        std::size_t size = room < first ? first : room * 2;
        setRoom(size < least ? least : size);
    }

    void setRoom(std::size_t size)
    {
        // Without any value there still is an address to show.
        void *const moved = std::realloc(values, (size > 0 ? size : 1) * sizeof(T));
        if (!moved)
            throw std::bad_alloc();
        values = static_cast<T *>(moved);
        room = size;
    }

    T *values = nullptr;
    std::size_t used = 0;
    std::size_t room = 0;
};
