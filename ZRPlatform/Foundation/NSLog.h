#pragma once

#include <functional>
#include <string_view>

#pragma GCC visibility push(default)
namespace zr {

/// Writes a line to the platform log (standard error). printf's format.
void NSLog(const char* format, ...) __attribute__((format(printf, 1, 2)));
/// Takes the lines instead of standard error, on the thread that logs; empty brings standard error back.
void setLogHandler(std::function<void(std::string_view)> handler);

/// The framework version number, by which components tell old systems from new: 993.00 for 6.1, 1144.17 for 8.4.
double NSFoundationVersionNumber();
/// Sets it. The device profile does at start.
void setFoundationVersionNumber(double number);

} // namespace zr
#pragma GCC visibility pop
