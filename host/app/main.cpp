// vantix: the Vantix host program.
#include "app/Program.h"

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

int main(int argc, char** argv)
{
    try
    {
        return vantix::host::detail::RunProgram(std::vector<std::string>(argv + 1, argv + argc));
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "vantix: %s\n", error.what());
        return 1;
    }
}
