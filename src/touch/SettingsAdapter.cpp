#include "touch/SettingsAdapter.h"

#include "app/AddressHint.h"
#include "app/Settings.h"
#include "touch/Captions.h"

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
    open_ = true;
    life_.setSettingsOpen(true);
    Q_EMIT changed();
}

void SettingsAdapter::close() {
    open_ = false;
    life_.setSettingsOpen(false);
    Q_EMIT changed();
}

QString SettingsAdapter::address() const {
    return QString::fromStdString(application_.settings().text(IP_ADDRESS_PREFERENCE).value_or(""));
}

void SettingsAdapter::setAddress(const QString& address) {
    store(IP_ADDRESS_PREFERENCE, address.toStdString());
}

QString SettingsAdapter::addressHint() const {
    const auto hint = lumbra::addressHint(address().toStdString());
    return hint ? translatedText(*hint) : QString();
}

int SettingsAdapter::unit() const {
    return narrowed(application_.settings().integer(UNIT_NUMBER_PREFERENCE));
}

void SettingsAdapter::setUnit(int unit) {
    store(UNIT_NUMBER_PREFERENCE, std::int64_t{unit});
}

int SettingsAdapter::minimumUnit() {
    return static_cast<int>(MIN_UNIT_NUMBER);
}

int SettingsAdapter::maximumUnit() {
    return static_cast<int>(MAX_UNIT_NUMBER);
}

bool SettingsAdapter::polling() const {
    return application_.settings().flag(POLLING_PREFERENCE);
}

void SettingsAdapter::setPolling(bool polling) {
    store(POLLING_PREFERENCE, polling);
}

bool SettingsAdapter::serialPort() const {
    return application_.settings().flag(SERIAL_PORT_PREFERENCE);
}

void SettingsAdapter::setSerialPort(bool serial) {
    store(SERIAL_PORT_PREFERENCE, serial);
}

int SettingsAdapter::startTab() const {
    return narrowed(application_.settings().integer(START_TAB_PREFERENCE));
}

void SettingsAdapter::setStartTab(int position) {
    store(START_TAB_PREFERENCE, std::int64_t{position});
}

QStringList SettingsAdapter::tabs() const {
    QStringList titles;
    // The mode may have been changed on this screen; the tabs follow only when it is closed.
    for (const auto& tab : application_.tabsInMode(advancedMode()))
        titles << translatedText(tab->view().title());
    return titles;
}

bool SettingsAdapter::advancedMode() const {
    return application_.settings().flag(ADVANCED_MODE_PREFERENCE);
}

void SettingsAdapter::setAdvancedMode(bool advanced) {
    store(ADVANCED_MODE_PREFERENCE, advanced);
}

QString SettingsAdapter::caption(const QString& key) {
    const auto wanted = key.toStdString();
    const auto* const entry = findSetting(wanted);
    return entry ? translatedText(entry->caption) : QString();
}

void SettingsAdapter::store(std::string_view key, SettingValue value) {
    application_.settings().setValue(key, std::move(value));
    Q_EMIT changed();
}

} // namespace lumbra
