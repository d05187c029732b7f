// Any bytes as report texts, each up to a ")": every screen's forms read them as the protocol's regular expressions do.
//
//     U1Z3V-35)U1Z3N"Hall")

#include "Check.h"
#include "FormOracle.h"
#include "Target.h"
#include "protocol/ReportBuffer.h"

using namespace lumbra;

FUZZ_TARGET(forms)(Input input) {
    while (!input.empty()) {
        const auto text = input.until(')').substr(0, ReportBuffer::CAPACITY);
        for (const char screen : oracle::SCREENS)
            check(oracle::byForms(screen, text) == oracle::byExpressions(screen, text),
                  "the forms and the expressions read differently", text);
    }
}
