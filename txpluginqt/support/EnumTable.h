#pragma once

#include <cstddef>

namespace txqt
{

/// One line of a table that translates between an enumeration of the interface and one of the backend.
template <class Host, class Backend>
struct EnumRow
{
    Host host;
    Backend backend;
};

/// The backend's member for a host's; @p fallback for every number that the table does not list.
template <class Host, class Backend, std::size_t N>
constexpr Backend ToBackend(const EnumRow<Host, Backend> (&table)[N], Host host, Backend fallback)
{
    for (const auto& row : table)
        if (row.host == host)
            return row.backend;
    return fallback;
}

/// The host's member for a backend's; @p fallback for every number that the table does not list.
template <class Host, class Backend, std::size_t N>
constexpr Host ToHost(const EnumRow<Host, Backend> (&table)[N], Backend backend, Host fallback)
{
    for (const auto& row : table)
        if (row.backend == backend)
            return row.host;
    return fallback;
}

} // namespace txqt
