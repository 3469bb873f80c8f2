#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

/// Where operations stand in the table of virtual functions, which is what a host and a backend that were built apart
/// have to agree on. This reads the Itanium C++ ABI as it is on x86-64: a pointer to a virtual member function holds 1
/// plus the byte offset of its entry in its first word, and a virtual destructor takes two entries.
namespace VirtualSlot
{

constexpr int kNotVirtual = -1;
constexpr int kDestructorEntries = 2;

/// The index in the table, `kNotVirtual` for an operation that is not in it. `Signature` picks one of several overloads
/// and must be given in full, such as `Entry<bool(int) const>(&Class::Operation)`.
template <class Signature, class Class>
int Entry(Signature Class::*operation)
{
    std::uintptr_t word = 0;
    static_assert(sizeof operation >= sizeof word);
    std::memcpy(&word, &operation, sizeof word);
    return word % 2 == 1 ? static_cast<int>((word - 1) / sizeof(void*)) : kNotVirtual;
}

/// The number in the order of declaration of a class whose destructor comes first and counts as one.
template <class Signature, class Class>
int Slot(Signature Class::*operation)
{
    const int entry = Entry<Signature>(operation);
    return entry == kNotVirtual ? kNotVirtual : entry - (kDestructorEntries - 1);
}

/// The slot that the first virtual operation of a class derived from `Class` gets, that is, the number of slots that
/// `Class` has.
template <class Class>
int Count()
{
    class Derived : public Class
    {
    public:
        virtual void First() {}
    };
    return Slot<void()>(&Derived::First);
}

/// One expectation of a table.
struct Row
{
    int expected;
    int actual;
    const char* operation;
};

} // namespace VirtualSlot
