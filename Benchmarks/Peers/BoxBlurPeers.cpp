// The box convolution beside OpenCV's box filter, its Gaussian blur of the same width, and copying.
//
// All take turns in one loop, so that whatever else the machine does meets them alike, and of each the shortest time
// counts. One thread's times are processor time, those of all threads the clock's.

#include <ZRPlatform/Accelerate/Accelerate.h>

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <limits>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace {

struct Scene {
    int width;
    int height;
    int kernel;
    int passes;
    bool onAllThreads;

    auto key() const { return std::tuple(onAllThreads, passes, width, height, kernel); }
    friend bool operator<(const Scene& one, const Scene& other) { return one.key() < other.key(); }
    std::size_t bytes() const {
        return std::size_t{4} * static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }
    /// Of as many boxes after one another as there are passes.
    double sigma() const { return std::sqrt(passes * (double{1} * kernel * kernel - 1) / 12); }
};

/// The shortest times, in seconds.
struct Times {
    double ours = std::numeric_limits<double>::infinity();
    double boxFilter = std::numeric_limits<double>::infinity();
    double gaussian = std::numeric_limits<double>::infinity();
    double copy = std::numeric_limits<double>::infinity();
};

std::map<Scene, Times> s_times;

class Stopwatch {
public:
    explicit Stopwatch(bool readsClock) : m_readsClock(readsClock), m_start(now()) {}
    double seconds() const { return now() - m_start; }

private:
    double now() const {
        if (m_readsClock)
            return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
    }

    bool m_readsClock;
    double m_start;
};

template <class Work>
void shorten(double& time, const Scene& scene, const Work& work) {
    const Stopwatch watch(scene.onAllThreads);
    work();
    time = std::min(time, watch.seconds());
}

/// The pictures of a scene, and what is measured on them.
class Contest {
public:
    explicit Contest(const Scene& scene) :
        m_scene(scene), m_source(scene.height, scene.width, CV_8UC4), m_ours{m_source.clone(), m_source.clone()},
        m_theirs{m_source.clone(), m_source.clone()} {
        cv::setNumThreads(scene.onAllThreads ? cv::getNumberOfCPUs() : 1);
        cv::randu(m_source, 0, 256);
        m_buffer.resize(static_cast<std::size_t>(pass(m_source, m_ours[0], zr::kvImageGetTempBufferSize)));
    }

    void convolve() {
        pass(m_source, m_ours[0], 0);
        for (int i = 1; i < m_scene.passes; ++i)
            pass(m_ours[(i - 1) % 2], m_ours[i % 2], 0);
    }

    void boxFilter() {
        boxFilterPass(m_source, m_theirs[0]);
        for (int i = 1; i < m_scene.passes; ++i)
            boxFilterPass(m_theirs[(i - 1) % 2], m_theirs[i % 2]);
    }

    void gaussianBlur() { cv::GaussianBlur(m_source, m_theirs[0], {}, m_scene.sigma(), 0, cv::BORDER_REPLICATE); }

    void copy() {
        std::memcpy(m_theirs[0].data, m_source.data, m_scene.bytes());
        benchmark::ClobberMemory();
    }

    bool isAlike() {
        convolve();
        boxFilter();
        const int last = (m_scene.passes - 1) % 2;
        return cv::norm(m_ours[last], m_theirs[last], cv::NORM_INF) <= m_scene.passes;
    }

private:
    zr::vImage_Error pass(cv::Mat& from, cv::Mat& to, zr::vImage_Flags flags) {
        const zr::vImage_Buffer source = bufferOf(from);
        const zr::vImage_Buffer destination = bufferOf(to);
        const auto side = static_cast<std::uint32_t>(m_scene.kernel);
        if (!m_scene.onAllThreads)
            flags |= zr::kvImageDoNotTile;
        return zr::vImageBoxConvolve_ARGB8888(&source, &destination, m_buffer.data(), 0, 0, side, side, nullptr,
                                              flags | zr::kvImageEdgeExtend);
    }

    void boxFilterPass(const cv::Mat& from, cv::Mat& to) {
        cv::boxFilter(from, to, -1, {m_scene.kernel, m_scene.kernel}, {-1, -1}, true, cv::BORDER_REPLICATE);
    }

    static zr::vImage_Buffer bufferOf(cv::Mat& picture) {
        return {picture.data, static_cast<std::size_t>(picture.rows), static_cast<std::size_t>(picture.cols),
                picture.step};
    }

    Scene m_scene;
    cv::Mat m_source;
    cv::Mat m_ours[2];
    cv::Mat m_theirs[2];
    std::vector<std::uint8_t> m_buffer;
};

void measure(benchmark::State& state, const Scene& scene) {
    Contest contest(scene);
    if (!contest.isAlike()) {
        state.SkipWithError("the two blurs differ");
        return;
    }
    Times& times = s_times[scene];
    // A Gaussian of a large sigma takes so long that once must do.
    shorten(times.gaussian, scene, [&] { contest.gaussianBlur(); });
    for (auto _ : state) {
        const double before = std::exchange(times.ours, std::numeric_limits<double>::infinity());
        shorten(times.ours, scene, [&] { contest.convolve(); });
        state.SetIterationTime(times.ours);
        times.ours = std::min(times.ours, before);
        shorten(times.boxFilter, scene, [&] { contest.boxFilter(); });
        shorten(times.copy, scene, [&] { contest.copy(); });
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(scene.bytes()));
    state.counters["x_boxFilter"] = times.boxFilter / times.ours;
    state.counters["x_Gaussian"] = times.gaussian / times.ours;
    state.counters["copies"] = times.ours / times.copy;
}

void printTable() {
    std::printf("\nMegabytes a second from the shortest times; how many times as fast as the peers; how many times as "
                "long as copying\nand as the same with a kernel of 3.\n\n");
    std::printf("%-8s %-7s %-10s %6s %8s %10s %9s %10s %10s %9s %8s\n", "threads", "passes", "size", "kernel", "MB/s",
                "boxFilter", "memcpy", "/boxFilter", "/Gaussian", "x memcpy", "x 3x3");
    for (const auto& [scene, times] : s_times) {
        const double megabytes = 1e-6 * static_cast<double>(scene.bytes());
        Scene smallest = scene;
        smallest.kernel = 3;
        const auto first = s_times.find(smallest);
        const std::string size = std::to_string(scene.width) + "x" + std::to_string(scene.height);
        std::printf("%-8s %-7d %-10s %6d %8.0f %10.0f %9.0f %10.2f %10.1f %9.2f %8.2f\n",
                    scene.onAllThreads ? "all" : "one", scene.passes, size.c_str(), scene.kernel,
                    megabytes / times.ours, megabytes / times.boxFilter, megabytes / times.copy,
                    times.boxFilter / times.ours, times.gaussian / times.ours, times.ours / times.copy,
                    first == s_times.end() ? 0 : times.ours / first->second.ours);
    }
}

void registerScene(const Scene& scene) {
    const std::string name = "BoxConvolve/" + std::to_string(scene.width) + "x" + std::to_string(scene.height) +
                             "/kernel:" + std::to_string(scene.kernel) + "/passes:" + std::to_string(scene.passes) +
                             (scene.onAllThreads ? "/threads:all" : "/threads:one");
    const int iterations = scene.width < 500 ? 300 : scene.width < 1000 ? 40 : 8;
    benchmark::RegisterBenchmark(name.c_str(), [scene](benchmark::State& state) { measure(state, scene); })
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond)
        ->Iterations(iterations);
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    for (const bool onAllThreads : {false, true}) {
        for (const int passes : {1, 3}) {
            for (const auto& [width, height] : {std::pair(200, 200), std::pair(750, 1334), std::pair(4000, 3000)}) {
                for (const int kernel : {3, 21, 99})
                    registerScene({width, height, kernel, passes, onAllThreads});
            }
        }
    }
    benchmark::RunSpecifiedBenchmarks();
    if (!s_times.empty())
        printTable();
    benchmark::Shutdown();
}
