#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace lumbra::console {

/// Line editing with history and completion on the terminal that is the process's standard input and output.
/// The terminal library keeps its state in globals: at most one editor at a time. Main thread only.
class LineEditor {
public:
    struct Delegate {
        std::function<void(std::string line)> entered;
        std::function<void()> ended; ///< the person has ended the input
        std::function<std::vector<std::string>(std::string_view line)> completions;
    };

    explicit LineEditor(Delegate delegate);
    /// Puts the terminal back into its former state.
    ~LineEditor();
    LineEditor(const LineEditor&) = delete;
    LineEditor& operator=(const LineEditor&) = delete;

    /// Shows the prompt and takes a line; keys are read by `readKeys` until the delegate is told of it.
    void prompt(std::string text);
    bool isPrompting() const { return prompting_; }
    /// Takes the keys that wait. Only while prompting.
    void readKeys();
    /// Takes the line under edit off the screen, so that others can be printed, and puts it back below them.
    void hide();
    void show();
    /// The window has another size, or the program goes on after it was stopped.
    void windowChanged();

private:
    void take(char* line);

    Delegate delegate_;
    std::string prompt_;
    bool prompting_ = false;
};

} // namespace lumbra::console
