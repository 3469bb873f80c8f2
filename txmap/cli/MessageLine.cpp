#include <txmap/cli/MessageLine.h>

#include <iostream>

namespace txmap
{

void PrintMessage(const std::string& message)
{
    std::string line = message;
    for (char& letter : line)
        if (letter == '\n' || letter == '\r')
            letter = ' ';
    std::cerr << "txmap: " << line << '\n';
}

} // namespace txmap
