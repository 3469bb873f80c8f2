#include <txmap/style/document/StyleProblem.h>

namespace txmap
{

std::string PointerTo(const std::string& pointer, const std::string& member)
{
    std::string result = pointer + "/";
    for (const char character : member)
    {
        if (character == '~')
            result += "~0";
        else if (character == '/')
            result += "~1";
        else
            result += character;
    }
    return result;
}

std::string PointerTo(const std::string& pointer, std::size_t index) { return pointer + "/" + std::to_string(index); }

std::string PointerToPart(const std::string& pointer, const std::string& key)
{
    std::string result = pointer;
    for (const char character : key)
        if (character != ']')
            result += character == '[' ? '/' : character;
    return result;
}

} // namespace txmap
