#pragma once

#include <string_view>

#pragma GCC visibility push(default)
namespace zr {

/// What helps to see how an application works; see `UIApplication::setDebugAids`. All off at first, and what is off
/// costs nothing. Views and layers, and dumps of them, are the same with and without; what is shown is in the frames,
/// snapshots and recordings of every host.
struct DebugAids {
    /// The most that `slowMotion` can be.
    static constexpr int slowestMotion = 1000;

    /// A second of the application's clock takes so many real ones, 1..1000: animations, timers, delayed performs,
    /// scrolling, the timing of touches and dates all go that much slower. Threads do not.
    int slowMotion = 1;
    /// A translucent circle under each finger, above everything; it fades within 0.3 s after the finger has gone.
    bool showsTouches = false;
    /// A line of one pixel along the edge of each layer that is on the screen, itself visible or not: red, or blue for
    /// a layer with a bitmap. Edges outside of a layer that cuts its sublayers to its bounds are cut too.
    bool showsLayerBorders = false;
    /// What the last frame repainted, tinted.
    bool showsDamage = false;
    /// In the upper right corner, the milliseconds that the last frame took from layout to composition, and the most
    /// that one of the last sixty took; real ones in slow motion and on a manual clock too. It changes along with the
    /// frames, and makes none of its own.
    bool showsFrameTimes = false;

    /// Switches on what the names say, which are separated by commas: "touches,borders,damage,times". False, and
    /// nothing is changed, when there is another name among them.
    bool show(std::string_view names);

    /// Whether the same is switched on.
    friend bool operator==(const DebugAids&, const DebugAids&) = default;
};

/// What can be shown, by name.
struct DebugAidName {
    /// As `DebugAids::show` takes it.
    const char* name;
    /// What it switches.
    bool DebugAids::*shows;
};
/// All names.
inline constexpr DebugAidName kDebugAidNames[] = {
    {"touches", &DebugAids::showsTouches},
    {"borders", &DebugAids::showsLayerBorders},
    {"damage", &DebugAids::showsDamage},
    {"times", &DebugAids::showsFrameTimes},
};

} // namespace zr
#pragma GCC visibility pop
