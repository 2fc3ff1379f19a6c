#include <benchmark/benchmark.h>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

namespace {

/// A whole process, from its start to its end, that shows the alert scene and leaves once the first frame is composed;
/// and the most memory it held.
void ProcessToFirstFrame(benchmark::State& state) {
    char path[4096];
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    const std::string self(path, length > 0 ? static_cast<std::size_t>(length) : 0);
    const std::string program = self.substr(0, self.rfind('/') + 1) + "zr_first_frame";
    rusage usage{};
    for (auto _ : state) {
        const pid_t child = fork();
        if (child == 0) {
            execl(program.c_str(), program.c_str(), static_cast<char*>(nullptr));
            _exit(127);
        }
        int status = 0;
        wait4(child, &status, 0, &usage);
        if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
            state.SkipWithError("the program zr_first_frame failed");
            break;
        }
    }
    state.counters["MB"] = static_cast<double>(usage.ru_maxrss) / 1024;
}
BENCHMARK(ProcessToFirstFrame)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
