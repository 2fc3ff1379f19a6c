#include <ZRPlatform/Hosts/Headless/TouchScript.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <fstream>

namespace zr {

namespace {

/// Beyond these a number is a slip of the hand, not a place or a time.
constexpr double kFarthestPoint = 100'000;
constexpr double kLongestWait = 3'600;

constexpr std::string_view kBlanks = " \t";

struct NamedKey {
    std::string_view name;
    UIKey key;
};
constexpr NamedKey kKeys[] = {
    {"return", UIKey::Return}, {"escape", UIKey::Escape}, {"tab", UIKey::Tab},     {"backspace", UIKey::Backspace},
    {"delete", UIKey::Delete}, {"left", UIKey::Left},     {"right", UIKey::Right}, {"up", UIKey::Up},
    {"down", UIKey::Down},     {"home", UIKey::Home},     {"end", UIKey::End},
};

struct NamedModifier {
    std::string_view prefix;
    UIKeyModifierFlags flag;
};
constexpr NamedModifier kModifiers[] = {
    {"shift+", UIKeyModifierShift}, {"control+", UIKeyModifierControl}, {"alt+", UIKeyModifierAlternate}};

struct NamedOrientation {
    std::string_view name;
    UIInterfaceOrientation orientation;
};
constexpr NamedOrientation kOrientations[] = {
    {"portrait", UIInterfaceOrientationPortrait},
    {"portrait-upside-down", UIInterfaceOrientationPortraitUpsideDown},
    {"landscape-left", UIInterfaceOrientationLandscapeLeft},
    {"landscape-right", UIInterfaceOrientationLandscapeRight},
};

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string_view trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == text.npos ? text.substr(0, 0) : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view withoutComment(std::string_view text) {
    for (std::size_t i = text.find('#'); i != text.npos; i = text.find('#', i + 1)) {
        if (i == 0 || kBlanks.find(text[i - 1]) != kBlanks.npos)
            return text.substr(0, i);
    }
    return text;
}

/// Takes the modifiers off the front of a key's name.
unsigned takeModifiers(std::string_view& name) {
    for (const NamedModifier& modifier : kModifiers) {
        if (name.substr(0, modifier.prefix.size()) == modifier.prefix) {
            name.remove_prefix(modifier.prefix.size());
            return modifier.flag | takeModifiers(name);
        }
    }
    return 0;
}

std::vector<std::string_view> words(std::string_view text) {
    std::vector<std::string_view> list;
    for (text = trimmed(text); !text.empty(); text = trimmed(text)) {
        list.push_back(text.substr(0, text.find_first_of(kBlanks)));
        text.remove_prefix(list.back().size());
    }
    return list;
}

} // namespace

/// Turns one line into an action. What is wrong with it is in `error`.
class TouchScriptParser {
public:
    using Action = TouchScript::Action;

    Action parseLine(std::string_view line);
    const std::string& error() const { return m_error; }

private:
    struct Word {
        std::string_view name;
        Action (TouchScriptParser::*parse)();
        std::string_view needs;
    };
    static const Word kWords[];

    Action tap();
    Action down();
    Action move();
    Action up();
    Action cancel();
    Action wheel();
    Action type();
    Action key();
    Action wait();
    Action rotate();
    Action crop();
    Action snapshot();
    Action dump();
    Action fps();
    Action record();
    Action stop();

    Action fail(std::string message);
    bool hasCount(std::size_t least, std::size_t most);
    std::optional<double> number(std::size_t index, double least, double most);
    /// From two arguments, `first` the earlier one.
    std::optional<CGPoint> point(std::size_t first = 0);
    std::optional<NSTimeInterval> seconds(std::size_t index) { return number(index, 0, kLongestWait); }
    std::string path();

    const Word* m_word = nullptr;
    /// What follows the word: to the letter, and split.
    std::string_view m_rest;
    std::vector<std::string_view> m_arguments;
    /// Of the recordings that follow.
    int m_framesPerSecond = 30;
    std::string m_error;
};

constexpr TouchScriptParser::Word TouchScriptParser::kWords[] = {
    {"tap", &TouchScriptParser::tap, "X and Y"},
    {"down", &TouchScriptParser::down, "X and Y"},
    {"move", &TouchScriptParser::move, "X, Y and perhaps seconds"},
    {"up", &TouchScriptParser::up, "nothing after it"},
    {"cancel", &TouchScriptParser::cancel, "nothing after it"},
    {"wheel", &TouchScriptParser::wheel, "X, Y and how far it turns across and down"},
    {"type", &TouchScriptParser::type, "a text"},
    {"key", &TouchScriptParser::key, "the name of a key"},
    {"wait", &TouchScriptParser::wait, "seconds"},
    {"rotate", &TouchScriptParser::rotate, "an orientation"},
    {"crop", &TouchScriptParser::crop, "X, Y, width and height, or nothing after it"},
    {"snapshot", &TouchScriptParser::snapshot, "a file"},
    {"dump", &TouchScriptParser::dump, "a file"},
    {"fps", &TouchScriptParser::fps, "frames a second"},
    {"record", &TouchScriptParser::record, "a file"},
    {"stop", &TouchScriptParser::stop, "nothing after it"},
};

TouchScript::Action TouchScriptParser::parseLine(std::string_view line) {
    m_error.clear();
    line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
    const std::string_view name = line.substr(0, line.find_first_of(kBlanks));
    if (name.empty() || name.front() == '#')
        return {};
    m_word = std::find_if(std::begin(kWords), std::end(kWords), [&](const Word& word) { return word.name == name; });
    if (m_word == std::end(kWords))
        return fail("there is no command " + quoted(name));
    m_rest = line.substr(std::min(name.size() + 1, line.size()));
    m_arguments = words(withoutComment(m_rest));
    return (this->*m_word->parse)();
}

TouchScript::Action TouchScriptParser::fail(std::string message) {
    m_error = std::move(message);
    return {};
}

bool TouchScriptParser::hasCount(std::size_t least, std::size_t most) {
    if (m_arguments.size() >= least && m_arguments.size() <= most)
        return true;
    fail(quoted(m_word->name) + " needs " + std::string(m_word->needs));
    return false;
}

std::optional<double> TouchScriptParser::number(std::size_t index, double least, double most) {
    const std::string_view text = m_arguments[index];
    double value = 0;
    const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (status == std::errc() && end == text.data() + text.size() && value >= least && value <= most)
        return value;
    fail(quoted(text) + " is not a number from " + std::to_string(std::llround(least)) + " to " +
         std::to_string(std::llround(most)));
    return std::nullopt;
}

std::optional<CGPoint> TouchScriptParser::point(std::size_t first) {
    const auto x = number(first, -kFarthestPoint, kFarthestPoint);
    const auto y = x ? number(first + 1, -kFarthestPoint, kFarthestPoint) : std::nullopt;
    if (!y)
        return std::nullopt;
    return CGPoint{static_cast<CGFloat>(*x), static_cast<CGFloat>(*y)};
}

std::string TouchScriptParser::path() {
    const std::string_view text = trimmed(withoutComment(m_rest));
    if (text.empty())
        fail(quoted(m_word->name) + " needs " + std::string(m_word->needs));
    return std::string(text);
}

TouchScript::Action TouchScriptParser::tap() {
    const auto place = hasCount(2, 2) ? point() : std::nullopt;
    if (!place)
        return {};
    return [place = *place](HeadlessHost& host) -> std::string {
        if (host.isTouching())
            return "the finger is down already";
        host.tap(place);
        return {};
    };
}

TouchScript::Action TouchScriptParser::down() {
    const auto place = hasCount(2, 2) ? point() : std::nullopt;
    if (!place)
        return {};
    return [place = *place](HeadlessHost& host) -> std::string {
        if (host.isTouching())
            return "the finger is down already";
        host.touchDown(place);
        return {};
    };
}

TouchScript::Action TouchScriptParser::move() {
    const auto place = hasCount(2, 3) ? point() : std::nullopt;
    if (!place)
        return {};
    const auto duration = m_arguments.size() == 3 ? seconds(2) : 0.0;
    if (!duration)
        return {};
    return [place = *place, duration = *duration](HeadlessHost& host) -> std::string {
        if (!host.isTouching())
            return "no finger is down";
        host.touchMove(place, duration);
        return {};
    };
}

TouchScript::Action TouchScriptParser::up() {
    if (!hasCount(0, 0))
        return {};
    return [](HeadlessHost& host) -> std::string {
        if (!host.isTouching())
            return "no finger is down";
        host.touchUp();
        return {};
    };
}

TouchScript::Action TouchScriptParser::cancel() {
    if (!hasCount(0, 0))
        return {};
    return [](HeadlessHost& host) -> std::string {
        if (!host.isTouching())
            return "no finger is down";
        host.touchCancel();
        return {};
    };
}

TouchScript::Action TouchScriptParser::wheel() {
    const auto place = hasCount(4, 4) ? point() : std::nullopt;
    const auto delta = place ? point(2) : std::nullopt;
    if (!delta)
        return {};
    return [place = *place, delta = *delta](HeadlessHost& host) -> std::string {
        return host.wheel(place, delta) ? "" : "nothing scrolls there";
    };
}

TouchScript::Action TouchScriptParser::type() {
    if (m_rest.empty())
        return fail(quoted(m_word->name) + " needs " + std::string(m_word->needs));
    return [text = NSString(m_rest)](HeadlessHost& host) -> std::string {
        return host.typeText(text) ? "" : "nothing on the screen takes text";
    };
}

TouchScript::Action TouchScriptParser::key() {
    if (!hasCount(1, 1))
        return {};
    std::string_view name = m_arguments[0];
    const unsigned modifiers = takeModifiers(name);
    if (modifiers == UIKeyModifierControl && name.size() == 1 && std::string_view("acvx").find(name) != name.npos) {
        return [letter = name[0]](HeadlessHost& host) -> std::string {
            host.clipboardKey(letter);
            return {};
        };
    }
    const auto* found =
        std::find_if(std::begin(kKeys), std::end(kKeys), [&](const NamedKey& key) { return key.name == name; });
    if (found == std::end(kKeys))
        return fail("there is no key " + quoted(m_arguments[0]));
    return [key = found->key, modifiers](HeadlessHost& host) -> std::string {
        host.pressKey(key, modifiers);
        return {};
    };
}

TouchScript::Action TouchScriptParser::wait() {
    const auto span = hasCount(1, 1) ? seconds(0) : std::nullopt;
    if (!span)
        return {};
    return [span = *span](HeadlessHost& host) -> std::string {
        host.advance(span);
        return {};
    };
}

TouchScript::Action TouchScriptParser::rotate() {
    if (!hasCount(1, 1))
        return {};
    const auto* found = std::find_if(std::begin(kOrientations), std::end(kOrientations),
                                     [&](const NamedOrientation& entry) { return entry.name == m_arguments[0]; });
    if (found == std::end(kOrientations))
        return fail("there is no orientation " + quoted(m_arguments[0]));
    return [orientation = found->orientation](HeadlessHost& host) -> std::string {
        host.rotate(orientation);
        return {};
    };
}

TouchScript::Action TouchScriptParser::crop() {
    if (m_arguments.empty())
        return [](HeadlessHost& host) -> std::string {
            host.setPictureArea(CGRectNull);
            return {};
        };
    const auto origin = hasCount(4, 4) ? point() : std::nullopt;
    const auto width = origin ? number(2, 1, kFarthestPoint) : std::nullopt;
    const auto height = width ? number(3, 1, kFarthestPoint) : std::nullopt;
    if (!height)
        return {};
    return [area = CGRectMake(origin->x, origin->y, static_cast<CGFloat>(*width), static_cast<CGFloat>(*height))](
               HeadlessHost& host) -> std::string {
        host.setPictureArea(area);
        return {};
    };
}

TouchScript::Action TouchScriptParser::snapshot() {
    const std::string file = path();
    if (file.empty())
        return {};
    return [file](HeadlessHost& host) -> std::string {
        return host.writeSnapshot(file) ? "" : quoted(file) + " cannot be written";
    };
}

TouchScript::Action TouchScriptParser::dump() {
    const std::string file = path();
    if (file.empty())
        return {};
    return [file](HeadlessHost& host) -> std::string {
        std::ofstream stream(file, std::ios::binary);
        stream << host.dump();
        stream.close();
        return stream.good() ? "" : quoted(file) + " cannot be written";
    };
}

TouchScript::Action TouchScriptParser::fps() {
    if (const auto frames = hasCount(1, 1) ? number(0, 1, 120) : std::nullopt)
        m_framesPerSecond = static_cast<int>(*frames);
    return {};
}

TouchScript::Action TouchScriptParser::record() {
    const std::string file = path();
    if (file.empty())
        return {};
    return [file, fps = m_framesPerSecond](HeadlessHost& host) -> std::string {
        if (host.isRecording())
            return "a recording runs already";
        return host.startRecording(file, fps) ? "" : quoted(file) + " cannot be written";
    };
}

TouchScript::Action TouchScriptParser::stop() {
    if (!hasCount(0, 0))
        return {};
    return [](HeadlessHost& host) -> std::string {
        if (!host.isRecording())
            return "no recording runs";
        return host.stopRecording() ? "" : "the recording cannot be written";
    };
}

std::optional<TouchScript> TouchScript::parse(std::string_view text, std::string& error) {
    TouchScript script;
    TouchScriptParser parser;
    for (int line = 1; !text.empty(); ++line) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        std::string_view content = text.substr(0, length);
        text.remove_prefix(std::min(length + 1, text.size()));
        if (!content.empty() && content.back() == '\r')
            content.remove_suffix(1);
        Action action = parser.parseLine(content);
        if (!parser.error().empty()) {
            error = "line " + std::to_string(line) + ": " + parser.error();
            return std::nullopt;
        }
        if (action)
            script.m_commands.push_back({line, std::move(action)});
    }
    return script;
}

bool TouchScript::run(HeadlessHost& host, std::string& error) const {
    for (const Command& command : m_commands) {
        const std::string problem = command.action(host);
        if (!problem.empty()) {
            error = "line " + std::to_string(command.line) + ": " + problem;
            return false;
        }
    }
    if (host.isRecording() && !host.stopRecording()) {
        error = "at the end: the recording cannot be written";
        return false;
    }
    return true;
}

} // namespace zr
