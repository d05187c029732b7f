#include "console/LineEditor.h"

#include <editline/readline.h>

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace lumbra::console {

namespace {

// The terminal library takes plain functions.
LineEditor* editor = nullptr;
std::vector<std::string> offered;

/// The number of columns that the library uses to show `text`, which is in the encoding of the locale.
std::size_t columnsOf(std::string_view text) {
    std::size_t columns = 0;
    std::mbstate_t state{};
    while (!text.empty()) {
        wchar_t character = 0;
        const auto length = std::mbrtowc(&character, text.data(), text.size(), &state);
        if (length == 0 || length > text.size()) { // not a character: shown as an octal number
            state = {};
            columns += 4;
            text.remove_prefix(1);
            continue;
        }
        const int width = ::wcwidth(character);
        columns += width >= 0 ? static_cast<std::size_t>(width) : 2; // a control character: ^A
        text.remove_prefix(length);
    }
    return columns;
}

char* offer(const char*, int state) {
    const auto index = static_cast<std::size_t>(state);
    return index < offered.size() ? ::strdup(offered[index].c_str()) : nullptr;
}

} // namespace

/// The library's output, which it keeps. It writes to a stream of ours, because a write to a terminal that is stopped
/// would block.
std::FILE* LineEditor::openOutput() {
    constexpr cookie_io_functions_t PRINT{.read = nullptr,
                                          .write = [](void*, const char* text, std::size_t size) -> ssize_t {
                                              if (editor)
                                                  editor->delegate_.print({text, size});
                                              return static_cast<ssize_t>(size);
                                          },
                                          .seek = nullptr,
                                          .close = nullptr};
    auto* const stream = ::fopencookie(nullptr, "w", PRINT);
    if (!stream)
        return stdout;
    std::setvbuf(stream, nullptr, _IONBF, 0);
    // It edits nothing where its output is no terminal, and a stream of this kind has no descriptor of its own.
    stream->_fileno = STDOUT_FILENO;
    return stream;
}

LineEditor::LineEditor(Delegate delegate) : delegate_(std::move(delegate)) {
    assert(!editor);
    editor = this;
    rl_readline_name = "lumbra-remote";
    // Signals are handled by the main loop.
    rl_catch_signals = 0;
    rl_completer_word_break_characters = const_cast<char*>(" \t");
    rl_basic_word_break_characters = " \t";
    rl_attempted_completion_function = [](const char* text, int start, int) -> char** {
        rl_attempted_completion_over = 1;
        const std::string line(rl_line_buffer, static_cast<std::size_t>(start));
        offered = editor->delegate_.completions(line + text);
        return rl_completion_matches(text, offer);
    };
    static std::FILE* const stream = openOutput();
    rl_outstream = stream;
    rl_initialize();
    using_history();
    stifle_history(1000);
}

LineEditor::~LineEditor() {
    if (prompting_) {
        hide();
        rl_callback_handler_remove();
    }
    editor = nullptr;
}

void LineEditor::prompt(std::string text) {
    assert(!prompting_);
    prompt_ = std::move(text);
    prompting_ = true;
    rl_callback_handler_install(prompt_.c_str(), [](char* line) { editor->take(line); });
}

void LineEditor::readKeys() {
    pollfd terminal{STDIN_FILENO, POLLIN, 0};
    // The library does not report a terminal that is gone.
    if (::poll(&terminal, 1, 0) == 1 && (terminal.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0) {
        prompting_ = false;
        rl_callback_handler_remove();
        delegate_.ended();
        return;
    }
    rl_callback_read_char();
}

void LineEditor::take(char* line) {
    prompting_ = false;
    rl_callback_handler_remove();
    if (!line) {
        delegate_.print("\n");
        delegate_.ended();
        return;
    }
    if (*line != '\0')
        add_history(line);
    delegate_.entered(line);
    std::free(line); // NOLINT(cppcoreguidelines-no-malloc): the library's
}

void LineEditor::hide() {
    if (!prompting_)
        return;
    int lines = 0;
    int columns = 0;
    rl_get_screen_size(&lines, &columns);
    const std::string_view line = rl_line_buffer ? rl_line_buffer : "";
    const auto before = line.substr(0, static_cast<std::size_t>(std::max(0, rl_point)));
    const auto row =
        (columnsOf(prompt_) + columnsOf(before)) / static_cast<std::size_t>(std::max(1, columns));
    if (row > 0)
        delegate_.print("\x1b[" + std::to_string(row) + "A");
    delegate_.print("\r\x1b[J");
}

void LineEditor::show() {
    if (prompting_)
        rl_forced_update_display();
}

void LineEditor::windowChanged() {
    hide();
    rl_resize_terminal();
    if (prompting_) {
        // The shell changed the settings of the terminal while the program was stopped.
        rl_deprep_terminal();
        rl_prep_terminal(1);
    }
    show();
}

} // namespace lumbra::console
