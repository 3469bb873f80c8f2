#pragma once

/// Lets the n-th allocation from here on fail, in the whole process, the plugin and Qt included.
class AllocationFailure
{
public:
    enum Extent
    {
        OnlyOne, ///< Allocations after the failing one succeed again.
        AllLater ///< So do none after it, until this object goes.
    };

    /// @param number which allocation fails, counted from 1; 0 lets none fail.
    AllocationFailure(int number, Extent extent);
    ~AllocationFailure();
    AllocationFailure(const AllocationFailure&) = delete;
    AllocationFailure& operator=(const AllocationFailure&) = delete;

    /// True once an allocation has failed.
    bool Happened() const;
    /// How many blocks more than at the start are allocated now.
    long Kept() const;
    /// Lets allocations succeed again.
    void Stop();

private:
    long before;
};
