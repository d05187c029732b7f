#include "touch/SettingsAdapter.h"

#include "app/AddressHint.h"
#include "app/Settings.h"
#include "touch/Captions.h"

#include <QFile>

#include <algorithm>
#include <limits>

namespace lumbra {

namespace {

int narrowed(std::int64_t number) {
    return static_cast<int>(
        std::clamp<std::int64_t>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

} // namespace

SettingsAdapter::SettingsAdapter(Application& application, WindowLife& life, RefreshQueue& queue,
                                 QObject* parent)
    : Adapter(queue, parent), application_(application), life_(life) {}

void SettingsAdapter::open() {
    draft_ = {};
    told_.reset();
    for (const auto& entry : SETTINGS)
        if (const auto value = application_.settings().value(entry.key))
            draft_.setValue(entry.key, *value);
    open_ = true;
    life_.setSettingsOpen(true);
    Q_EMIT changed();
}

bool SettingsAdapter::accept() {
    auto& stored = application_.settings();
    const auto given = address().toStdString();
    if (given != stored.text(IP_ADDRESS_PREFERENCE) && given != told_ && lumbra::addressHint(given)) {
        told_ = given;
        Q_EMIT changed();
        return false;
    }
    for (const auto& entry : SETTINGS)
        if (const auto value = draft_.value(entry.key); value && value != stored.value(entry.key))
            stored.setValue(entry.key, *value);
    close();
    return true;
}

void SettingsAdapter::cancel() {
    close();
}

void SettingsAdapter::close() {
    open_ = false;
    life_.setSettingsOpen(false);
    Q_EMIT changed();
}

QString SettingsAdapter::address() const {
    return QString::fromStdString(draft_.text(IP_ADDRESS_PREFERENCE).value_or(""));
}

void SettingsAdapter::setAddress(const QString& address) {
    setDraft(IP_ADDRESS_PREFERENCE, address.toStdString());
}

QString SettingsAdapter::addressHint() const {
    const auto given = address().toStdString();
    const auto hint = given == told_ ? lumbra::addressHint(given) : std::nullopt;
    return hint ? translatedText(*hint) : QString();
}

int SettingsAdapter::unit() const {
    return narrowed(draft_.integer(UNIT_NUMBER_PREFERENCE));
}

void SettingsAdapter::setUnit(int unit) {
    setDraft(UNIT_NUMBER_PREFERENCE, std::int64_t{unit});
}

int SettingsAdapter::minimumUnit() {
    return static_cast<int>(MIN_UNIT_NUMBER);
}

int SettingsAdapter::maximumUnit() {
    return static_cast<int>(MAX_UNIT_NUMBER);
}

bool SettingsAdapter::polling() const {
    return draft_.flag(POLLING_PREFERENCE);
}

void SettingsAdapter::setPolling(bool polling) {
    setDraft(POLLING_PREFERENCE, polling);
}

bool SettingsAdapter::serialPort() const {
    return draft_.flag(SERIAL_PORT_PREFERENCE);
}

void SettingsAdapter::setSerialPort(bool serial) {
    setDraft(SERIAL_PORT_PREFERENCE, serial);
}

int SettingsAdapter::startTab() const {
    return narrowed(draft_.integer(START_TAB_PREFERENCE));
}

void SettingsAdapter::setStartTab(int position) {
    setDraft(START_TAB_PREFERENCE, std::int64_t{position});
}

QStringList SettingsAdapter::tabs() const {
    QStringList titles;
    // The mode may have been changed on this screen; the tabs follow only when it is closed.
    for (const auto& tab : application_.tabsInMode(advancedMode()))
        titles << translatedText(tab->view().title());
    return titles;
}

bool SettingsAdapter::advancedMode() const {
    return draft_.flag(ADVANCED_MODE_PREFERENCE);
}

void SettingsAdapter::setAdvancedMode(bool advanced) {
    setDraft(ADVANCED_MODE_PREFERENCE, advanced);
}

QString SettingsAdapter::version() {
    return QStringLiteral(LUMBRA_VERSION);
}

QString SettingsAdapter::licence() {
    QFile file(QStringLiteral(":/qt/qml/Lumbra/Touch/LICENSE"));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString SettingsAdapter::explanation(const QString& key) {
    const auto wanted = key.toStdString();
    const auto* const entry = findSetting(wanted);
    return entry && !entry->explanation.empty() ? translatedText(entry->explanation) : QString();
}

QString SettingsAdapter::caption(const QString& key) {
    const auto wanted = key.toStdString();
    const auto* const entry = findSetting(wanted);
    return entry ? translatedText(entry->caption) : QString();
}

void SettingsAdapter::setDraft(std::string_view key, SettingValue value) {
    draft_.setValue(key, std::move(value));
    Q_EMIT changed();
}

} // namespace lumbra
