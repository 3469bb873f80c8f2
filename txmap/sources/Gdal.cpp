#include <txmap/sources/Gdal.h>

#include <cpl_error.h>
#include <cpl_vsi.h>
#include <gdal_priv.h>

#include <algorithm>
#include <cctype>

namespace txmap
{

void PrepareGdal()
{
    CPLSetErrorHandler(CPLQuietErrorHandler);
    GDALAllRegister();
}

std::string LastGdalComplaint()
{
    const std::string text = CPLGetLastErrorType() >= CE_Failure ? CPLGetLastErrorMsg() : "";
    return text.empty() ? text : " (" + text + ")";
}

bool IsConnection(const std::string& address)
{
    const std::size_t colon = address.find(':');
    return colon != std::string::npos && colon > 1 && address.compare(colon, 3, "://") != 0 &&
           std::all_of(address.begin(), address.begin() + static_cast<std::ptrdiff_t>(colon),
                       [](unsigned char c) { return std::isalnum(c) || c == '_'; });
}

std::string FileProblem(const std::string& path)
{
    VSIStatBufL status;
    if (VSIStatL(path.c_str(), &status) != 0)
        return IsConnection(path) ? "" : "no such file";
    if (VSI_ISDIR(status.st_mode))
        return "is a directory, where a file is wanted";
    if (status.st_size == 0 && VSI_ISREG(status.st_mode))
        return "is an empty file";
    return {};
}

} // namespace txmap
