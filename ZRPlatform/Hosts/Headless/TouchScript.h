#pragma once

#include <ZRPlatform/Hosts/Headless/HeadlessHost.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zr { // not exported
class TouchScriptParser;
} // namespace zr

#pragma GCC visibility push(default)
namespace zr {

/// A list of things to do to an application without a screen, one a line:
///
///     tap X Y                  points of the screen
///     down X Y                 one finger; it stays down until `up` or `cancel`
///     move X Y [SECONDS]       at once, or along a line while the clock advances
///     up
///     cancel
///     wheel X Y DX DY          turns a wheel there: so many points across and down the content
///     type TEXT                the rest of the line, to the letter
///     key NAME                 return, escape, tab, backspace, delete, left, right, up, down, home, end, each with
///                              shift+, control+ or alt+ before it; control+a, control+c, control+v, control+x
///     wait SECONDS             the clock advances
///     rotate ORIENTATION       portrait, portrait-upside-down, landscape-left, landscape-right
///     crop X Y WIDTH HEIGHT    what pictures and recordings show from here on; `crop` alone: the screen again
///     snapshot FILE.png        the screen
///     dump FILE.json           the view trees
///     fps N                    frames a second of the recordings from here on, 1 to 120; 30 at first
///     record FILE.webp         from here on, until `stop` or the end of the script
///     stop
///
/// Words are separated by spaces or tabs. Empty lines do nothing, nor does what follows a # that begins a line or comes
/// after a space; in a text to type, # is a character like others. Files without a leading slash are in the current
/// folder.
class TouchScript {
public:
    /// Nothing when there is a mistake: `error` is then one line such as `line 3: "tap" needs X and Y`.
    static std::optional<TouchScript> parse(std::string_view text, std::string& error);

    /// Plays the script. False when a line cannot be carried out (a finger goes up that is not down, a file cannot be
    /// written): `error` says which and why, and the lines after it are not played.
    bool run(HeadlessHost& host, std::string& error) const;

private:
    friend class TouchScriptParser;

    /// Returns what went wrong; empty when nothing did.
    using Action = std::function<std::string(HeadlessHost&)>;
    struct Command {
        int line;
        Action action;
    };

    std::vector<Command> m_commands;
};

} // namespace zr
#pragma GCC visibility pop
