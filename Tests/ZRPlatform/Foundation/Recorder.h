#pragma once

#include <ZRPlatform/Foundation/Foundation.h>

#include <string>
#include <vector>

namespace zr {

/// Writes down what it is sent.
class Recorder : public NSObject {
public:
    ~Recorder() override {
        if (onDestruction)
            onDestruction();
    }

    void plain() { messages.emplace_back("plain"); }
    void with(const NSValue& object) { messages.push_back("with " + object.description().utf8()); }
    void other(const NSValue& object) { messages.push_back("other " + object.description().utf8()); }
    int twice(int number) { return 2 * number; }
    int difference(int a, int b) { return a - b; }

    std::vector<std::string> messages;
    std::function<void()> onDestruction;
};

/// Has nothing to do with a recorder.
class Stranger : public NSObject {};

/// Takes the log lines for as long as it lives.
class LogLines {
public:
    LogLines() {
        setLogHandler([this](std::string_view line) { lines.emplace_back(line); });
    }
    ~LogLines() { setLogHandler(nullptr); }

    std::vector<std::string> lines;
};

} // namespace zr
