#pragma once

#include <cstdio>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace lumbra::console {

/// Line editing with history and completion, on the terminal that is standard input and output. The terminal
/// library keeps its state in globals, so only one editor may exist at a time. Main thread only.
class LineEditor {
public:
    struct Delegate {
        std::function<void(std::string line)> entered;
        std::function<void()> ended; ///< the user has ended the input
        std::function<std::vector<std::string>(std::string_view line)> completions;
        /// Prints the prompt, the echo of keys and what moves the cursor. It never waits for the terminal.
        std::function<void(std::string_view text)> print;
    };

    explicit LineEditor(Delegate delegate);
    /// Restores the state of the terminal.
    ~LineEditor();
    LineEditor(const LineEditor&) = delete;
    LineEditor& operator=(const LineEditor&) = delete;

    /// Shows the prompt and begins a line. `readKeys` reads its keys until the delegate is called.
    void prompt(std::string text);
    bool isPrompting() const { return prompting_; }
    /// Reads the keys that are available. Only while prompting.
    void readKeys();
    /// `hide` removes the line that is being edited from the screen, so that other lines can be printed;
    /// `show` puts it back below them.
    void hide();
    void show();
    /// Call when the size of the window has changed, or when the program continues after it was stopped.
    void windowChanged();

private:
    static std::FILE* openOutput();
    void take(char* line);

    Delegate delegate_;
    std::string prompt_;
    bool prompting_ = false;
};

} // namespace lumbra::console
