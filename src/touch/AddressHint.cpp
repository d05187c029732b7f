#include "touch/AddressHint.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

namespace lumbra {

namespace {

QString tell(const char* sentence) {
    return QCoreApplication::translate("AddressHint", sentence);
}

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

bool isHexDigit(QChar c) {
    const QChar lower = c.toLower();
    return isDigit(c) || (lower >= u'a' && lower <= u'f');
}

QString hintForNumbers(const QStringList& parts) {
    const auto wrong = [](const QString& part) { return part.size() > 3 || part.toInt() > 255; };
    if (parts.size() != 4 || parts.contains(QString()))
        return tell(QT_TRANSLATE_NOOP("AddressHint", "An address has four numbers, as in 192.168.1.50."));
    if (std::any_of(parts.begin(), parts.end(), wrong))
        return tell(QT_TRANSLATE_NOOP("AddressHint", "Each number of an address is 255 at most."));
    return {};
}

} // namespace

QString addressHint(const QString& address) {
    if (address.isEmpty())
        return tell(QT_TRANSLATE_NOOP("AddressHint", "Without an address there is no unit to reach."));
    if (std::any_of(address.begin(), address.end(), [](QChar c) { return c.isSpace(); }))
        return tell(QT_TRANSLATE_NOOP("AddressHint", "An address has no blanks."));
    if (std::all_of(address.begin(), address.end(), [](QChar c) { return isDigit(c) || c == u'.'; }))
        return hintForNumbers(address.split(u'.'));
    if (address.contains(u':')) {
        const QString plain = address.section(u'%', 0, 0);
        const bool fits = std::all_of(plain.begin(), plain.end(),
                                      [](QChar c) { return isHexDigit(c) || c == u':' || c == u'.'; });
        return fits && plain.count(u':') >= 2
                   ? QString()
                   : tell(QT_TRANSLATE_NOOP("AddressHint",
                                            "A port can't be given; the unit is always reached on port 23."));
    }
    const bool isName = std::all_of(address.begin(), address.end(), [](QChar c) {
        return c.isLetterOrNumber() || c == u'-' || c == u'.' || c == u'_';
    });
    return isName ? QString()
                  : tell(QT_TRANSLATE_NOOP(
                        "AddressHint", "This is neither an address, as 192.168.1.50, nor a host's name."));
}

} // namespace lumbra
