#include <ZRPlatform/Hosts/Window/RunInWindow.h>

#include <ZRPlatform/Hosts/Window/Internal/WindowHost.h>

#include <charconv>
#include <cstring>
#include <iostream>

namespace zr {

namespace {

constexpr double kSmallestWindowScale = 0.5;
constexpr double kLargestWindowScale = 8;

/// The arguments of a command line, one after the other.
class ArgumentReader {
public:
    ArgumentReader(int argc, const char* const* argv) : m_count(argc), m_arguments(argv) {}

    bool isAtEnd() const { return m_index >= m_count; }
    void skip() { ++m_index; }
    /// Whether the present argument is `name` or `name=…`.
    bool isOption(std::string_view name) const {
        const std::string_view argument = m_arguments[m_index];
        return argument.substr(0, name.size()) == name &&
               (argument.size() == name.size() || argument[name.size()] == '=');
    }
    /// The value of the present option, from behind its "=" or from the next argument; null when there is none.
    const char* takeValue() {
        const char* equals = std::strchr(m_arguments[m_index++], '=');
        if (equals)
            return equals + 1;
        return isAtEnd() ? nullptr : m_arguments[m_index++];
    }

private:
    int m_index = 1;
    int m_count;
    const char* const* m_arguments;
};

std::optional<double> windowScale(std::string_view text) {
    double value = 0;
    const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (status != std::errc() || end != text.data() + text.size() ||
        !(value >= kSmallestWindowScale && value <= kLargestWindowScale))
        return std::nullopt;
    return value;
}

bool readDevice(const char* value, WindowOptions& options) {
    const auto profile = DeviceProfile::profileWithDescription(value);
    if (!profile)
        return false;
    options.profile.screenSize = profile->screenSize;
    options.profile.scale = profile->scale;
    return true;
}

bool readSystemVersion(const char* value, WindowOptions& options) {
    options.profile.systemVersion = value;
    return options.profile.systemVersion.doubleValue() > 0;
}

bool readWindowScale(const char* value, WindowOptions& options) {
    options.windowScale = windowScale(value);
    return options.windowScale.has_value();
}

bool readSlowMotion(const char* value, WindowOptions& options) {
    int& factor = options.debugAids.slowMotion;
    const char* const end = value + std::strlen(value);
    const auto [behind, status] = std::from_chars(value, end, factor);
    return status == std::errc() && behind == end && factor >= 1 && factor <= DebugAids::slowestMotion;
}

bool readShown(const char* value, WindowOptions& options) { return options.debugAids.show(value); }

struct Option {
    const char* name;
    bool (*read)(const char* value, WindowOptions& options);
    const char* needs;
};
constexpr Option kOptions[] = {
    {"--device", &readDevice, "a screen such as 375x667@2"},
    {"--system-version", &readSystemVersion, "a version such as 8.4"},
    {"--window-scale", &readWindowScale, "a number from 0.5 to 8"},
    {"--slow", &readSlowMotion, "a whole number from 1 to 1000"},
    {"--show", &readShown, "some of touches,borders,damage,times"},
};

const Option* presentOption(const ArgumentReader& reader) {
    for (const Option& option : kOptions) {
        if (reader.isOption(option.name))
            return &option;
    }
    return nullptr;
}

} // namespace

std::optional<WindowOptions> windowOptionsFromArguments(int argc, const char* const* argv, std::string& error) {
    WindowOptions options;
    options.title = argc > 0 ? NSString(argv[0]).lastPathComponent() : NSString("");
    ArgumentReader reader(argc, argv);
    while (!reader.isAtEnd()) {
        const Option* option = presentOption(reader);
        if (!option) {
            options.frameLog |= reader.isOption("--frame-log");
            reader.skip();
            continue;
        }
        const char* value = reader.takeValue();
        if (!value || !option->read(value, options)) {
            error = std::string(option->name) + " needs " + option->needs;
            if (value)
                error += std::string(", not \"") + value + "\"";
            return std::nullopt;
        }
    }
    return options;
}

int runInWindow(const WindowOptions& options, const std::function<bool(UIApplication*)>& start) {
    UIDevice::currentDevice()->setProfile(options.profile);
    std::string error;
    std::unique_ptr<DesktopWindow> window = DesktopWindow::open(options, UIScreen::mainScreen()->bounds().size, error);
    if (!window) {
        std::cerr << "No window can be opened: " << error << std::endl;
        return 1;
    }
    WindowHost host(std::move(window), options);
    if (start && !start(host.application())) {
        std::cerr << "The application did not start" << std::endl;
        return 1;
    }
    host.run();
    return 0;
}

} // namespace zr
