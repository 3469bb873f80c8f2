#include <txbase/TXRefBase.h>

namespace TZObjects
{

TXRefBase::~TXRefBase() = default;

void TXRefBase::AddRef() noexcept { count.fetch_add(1, std::memory_order_relaxed); }

bool TXRefBase::Release() noexcept
{
    if (count.fetch_sub(1, std::memory_order_acq_rel) > 1)
        return false;
    delete this;
    return true;
}

} // namespace TZObjects
