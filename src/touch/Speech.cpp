#include "touch/Speech.h"

#include "touch/Captions.h"

namespace lumbra {

QString Speech::format(const QString& pattern, const QStringList& values) {
    QString filled;
    for (qsizetype at = 0; at < pattern.size(); ++at) {
        const qsizetype value =
            pattern[at] == u'%' && at + 1 < pattern.size() ? pattern[at + 1].unicode() - u'1' : -1;
        if (value < 0 || value >= values.size()) {
            filled += pattern[at];
            continue;
        }
        filled += values[value] == unknownText() ? spokenUnknown() : values[value];
        ++at;
    }
    return filled;
}

} // namespace lumbra
