// linealis-cli without the memory that it asks for: of all requests that come from within main(), its libraries'
// too, the one whose number is in FAULT_AT fails. Linked with --wrap of the functions below, and statically.

#include <cerrno>
#include <cstddef>
#include <cstdlib>

namespace {

unsigned long requestsLeft = 0;  // 0: none fails any more

bool IsRefused()
{
    if (requestsLeft == 0 || --requestsLeft > 0) {
        return false;
    }
    errno = ENOMEM;
    return true;
}

}  // namespace

extern "C" {

void* __real_malloc(std::size_t size);
void* __real_calloc(std::size_t count, std::size_t size);
void* __real_realloc(void* memory, std::size_t size);
int __real_main(int argc, char** argv);

void* __wrap_malloc(std::size_t size)
{
    return IsRefused() ? nullptr : __real_malloc(size);
}

void* __wrap_calloc(std::size_t count, std::size_t size)
{
    return IsRefused() ? nullptr : __real_calloc(count, size);
}

void* __wrap_realloc(void* memory, std::size_t size)
{
    return IsRefused() ? nullptr : __real_realloc(memory, size);
}

int __wrap_main(int argc, char** argv)
{
    const char* const at = std::getenv("FAULT_AT");
    requestsLeft = at == nullptr ? 0 : std::strtoul(at, nullptr, 10);
    const int status = __real_main(argc, argv);
    if (requestsLeft > 0) {
        _Exit(99);  // no request with this number: all have been tried
    }
    return status;
}
}
