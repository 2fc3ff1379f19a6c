#pragma once

#include <fstream>
#include <sys/resource.h>
#include <unistd.h>

namespace zr {

/// From now on the process may have so many bytes more than it has. For child processes, as it cannot be taken back.
/// False when the system does not let it.
inline bool leaveMemory(rlim_t bytes) {
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t limit = pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + bytes;
    const rlimit limits{limit, limit};
    return setrlimit(RLIMIT_AS, &limits) == 0;
}

} // namespace zr
