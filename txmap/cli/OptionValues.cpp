#include <txmap/cli/OptionValues.h>

#include <vector>

#include <txmap/style/Value.h>

namespace txmap
{

double ParseNumber(const char* option, const std::string& text, double least, double greatest)
{
    const std::vector<double> numbers = NumbersIn<double>(text, ',');
    if (numbers.size() != 1 || !(numbers[0] >= least && numbers[0] <= greatest))
        Refuse(option, text, "must be a number from " + NumberText(least) + " to " + NumberText(greatest));
    return numbers[0];
}

int ParseWholeNumber(const char* option, const std::string& text, int least, int greatest)
{
    const std::vector<int> numbers = NumbersIn<int>(text, ',');
    if (numbers.size() != 1 || numbers[0] < least || numbers[0] > greatest)
        Refuse(option, text,
               "must be a whole number from " + std::to_string(least) + " to " + std::to_string(greatest));
    return numbers[0];
}

} // namespace txmap
