// Any bytes as report texts, each up to a ")": a few forms with every kind of part read them as the regular expressions do
// that are made of the same forms.
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
        check(oracle::byForms(text) == oracle::byExpressions(text),
              "the forms and the expressions read differently", text);
    }
}
