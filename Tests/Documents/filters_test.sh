#!/usr/bin/env bash
# filters_test.sh ROOT WORK: what the two filters of documents and headers make of a small one each.
set -euo pipefail
root=$1
work=$2/filters
failed=0

# expect WHAT FILE TEXT…: the file has each of these lines.
expect() {
    local what=$1 file=$2 text
    shift 2
    for text; do
        grep -qxF -- "$text" "$file" || {
            echo "FAILED: $what: no line \"$text\" in" >&2
            cat "$file" >&2
            failed=1
        }
    done
}

rm -rf "$work"
mkdir -p "$work"
cd "$work"

cat >guide.md <<'END'
<!-- in a function: int wrong -->
Not right before a block.

```cpp
#include <numbers>
int main() { return 0; }
```

<!-- in a function: int count -->
```cpp
++count;
```

<!-- in a class: UIView -->
```cpp
int m_count = 0;
```

```touch-script
wait 1
```

```sh
./not compiled
```

```cpp
int main(int argc, char** argv) { return UIApplicationMain<App>(argc, argv); }
```
END
awk -f "$root/Tests/Documents/code_blocks.awk" -v output=guide.cpp guide.md
expect "a program" guide.cpp '#include <numbers>' 'namespace guide_md_1 {' '#line 5 "guide.md"' \
    '    EXPECT_EQ(guide_md_1::main(), 0);'
expect "a function" guide.cpp 'void fragment_11(int count) {' '#line 11 "guide.md"' '++count;'
expect "a class" guide.cpp 'class Fragment_16 : public UIView {' 'int m_count = 0;'
expect "a script" guide.cpp '    EXPECT_TRUE(zr::TouchScript::parse(R"script(wait 1'
expect "an application" guide.cpp 'namespace guide_md_2 {' \
    '    const auto application = zr::make<guide_md_2::App>();'
! grep -qE 'wrong|not compiled' guide.cpp || {
    echo "FAILED: what is no code, or meant for no block, is in the source" >&2
    failed=1
}
echo "No code." >empty.md
! awk -f "$root/Tests/Documents/code_blocks.awk" -v output=empty.cpp empty.md 2>/dev/null || {
    echo "FAILED: documents without code pass" >&2
    failed=1
}

cat >Header.h <<'END'
/// A part of a line.
struct Span {
    /// From left to right.
    int left = 0, right = 0;
    int width() const;
    /// In seconds.
    double begin = 0;
    double end = 0;
    int count = 0;
};
/// What a key is called.
inline constexpr const char* kFirst = "first";
inline constexpr const char* kSecond = "second";
class Thing {
public:
    /// Points; 0 at first.
    int size() const;
    void setSize(int size);
    void setSize_animated(int size, bool animated);
    bool isRound() const;
    /// Shows at once.
    void setRound(bool round);
    /// Called afterwards.
    std::function<void(int)> block() const;
    void setBlock(std::function<void(int)> block);
    /// False at first.
    bool isOpen() const;
    void setOpen(bool open);
    /// True at first.
    bool isWide() const;
    void setWide(bool wide) override;
    /// Of nothing.
    Thing();
    Thing(const Thing&) = delete;

    /// @name Movement
    /// In seconds.
    /// @{
    /// Begins anew.
    void start();
    void start(int speed);
    void startAgain();
    /// @}

    /// At least 0.
    int top() const;
    int bottom() const;
    /// As large as its text.
    int height() const;
    void layoutSubviews() override;
    /// Its number.
    int* operator->() const;
    int& operator*() const;
};
END
awk -f "$root/Docs/spread_comments.awk" Header.h >Spread.h
expect "a row of fields" Spread.h '    int left = 0; /** From left to right. */ int right = 0;'
expect "fields of one type" Spread.h '    double begin = 0;' '    /** In seconds. */ double end = 0;'
expect "constants" Spread.h '/** What a key is called. */ inline constexpr const char* kSecond = "second";'
expect "a getter's words" Spread.h '    /** Points; 0 at first. */ void setSize(int size);' \
    '    /** Called afterwards. */ void setBlock(std::function<void(int)> block);' \
    '    /** False at first. */ void setOpen(bool open);'
expect "a setter's words" Spread.h '    /** Shows at once. */ bool isRound() const;'
expect "overloads" Spread.h '    /** Begins anew. */ void start(int speed);'
expect "brackets of groups" Spread.h '    /** @{ */' '    /** @} */'
# What only stands below others, or in a group.
expect "no words of others" Spread.h '    int width() const;' '    int count = 0;' \
    '    void setSize_animated(int size, bool animated);' '    Thing(const Thing&) = delete;' '    void startAgain();' \
    '    int bottom() const;' '    void layoutSubviews() override;' '    void setWide(bool wide) override;' \
    '    int& operator*() const;'
[[ $(wc -l <Header.h) == "$(wc -l <Spread.h)" ]] || {
    echo "FAILED: lines lose their numbers" >&2
    failed=1
}
exit "$failed"
