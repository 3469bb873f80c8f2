// A plugin whose entry throws an exception of a class that only the plugin knows.
#include <exception>
#include <string>

#include <boost/dll/alias.hpp>
#include <txbase/TXPlugin.h>
#include <txbase/TXRefPtr.h>

namespace
{

class OwnException : public std::exception
{
public:
    const char* what() const noexcept override { return text.c_str(); }

private:
    std::string text = "the licence of this plugin ran out";
};

} // namespace

TZObjects::TXRefPtr<TZObjects::TXPlugin> ThrowException() { throw OwnException(); }

BOOST_DLL_ALIAS(ThrowException, GetTZPlugIn)
