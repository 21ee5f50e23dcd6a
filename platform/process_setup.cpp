#include "platform/process_setup.h"

#include <clocale>
#include <cstdlib>
#include <fcntl.h>
#include <langinfo.h>
#include <string_view>
#include <unistd.h>

namespace marrowcut
{

namespace
{

void detachStandardInput()
{
    const int null = open("/dev/null", O_RDONLY);
    if (null < 0)
        return;
    dup2(null, STDIN_FILENO);
    if (null != STDIN_FILENO)
        close(null);
}

void ensureUtf8Locale()
{
    setlocale(LC_ALL, "");
    if (std::string_view(nl_langinfo(CODESET)) != "UTF-8")
        setenv("LC_ALL", "C.UTF-8", 1);
}

} // namespace

void setUpProcess()
{
    detachStandardInput();
    ensureUtf8Locale();
}

} // namespace marrowcut
