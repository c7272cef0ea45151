#include <zorvaparser/zorvaversion.h>

const char* Orvane::ZorvaVersion() noexcept
{
    return ZORVAPARSER_VERSION_STR;
}

int Orvane::ZorvaVersionNumber() noexcept
{
    return ZORVAPARSER_VERSION;
}
