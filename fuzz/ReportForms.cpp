// Any bytes as report texts, each up to a ")": every screen's forms read them as the protocol's regular expressions do.
//
//     U1Z3V-35)U1Z3N"Hall")

#include "Check.h"
#include "FormOracle.h"
#include "Input.h"
#include "protocol/ReportBuffer.h"

#include <cstddef>
#include <cstdint>

using namespace lumbra;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    while (!input.empty()) {
        const auto text = input.until(')').substr(0, ReportBuffer::CAPACITY);
        for (const char screen : oracle::SCREENS)
            check(oracle::byForms(screen, text) == oracle::byExpressions(screen, text),
                  "the forms and the expressions read differently", text);
    }
    return 0;
}
