#pragma once

#include "app/Application.h"
#include "app/WindowLife.h"
#include "platform/MemorySettingsStore.h"
#include "touch/Adapter.h"

#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <optional>
#include <string>
#include <string_view>

namespace lumbra {

/// Exposes the six settings to QML. The settings screen counts as outside the application: opening it leaves
/// the application, closing it returns, and only then are changed settings read. What is changed there is a draft,
/// which is stored when the user accepts it.
class SettingsAdapter final : public lumbra::Adapter {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("the application gives it")
    Q_PROPERTY(bool shown READ isShown NOTIFY changed)
    Q_PROPERTY(QString address READ address WRITE setAddress NOTIFY changed)
    Q_PROPERTY(QString addressHint READ addressHint NOTIFY changed)
    Q_PROPERTY(int unit READ unit WRITE setUnit NOTIFY changed)
    Q_PROPERTY(int minimumUnit READ minimumUnit CONSTANT)
    Q_PROPERTY(int maximumUnit READ maximumUnit CONSTANT)
    Q_PROPERTY(bool polling READ polling WRITE setPolling NOTIFY changed)
    Q_PROPERTY(bool serialPort READ serialPort WRITE setSerialPort NOTIFY changed)
    Q_PROPERTY(int startTab READ startTab WRITE setStartTab NOTIFY changed)
    Q_PROPERTY(QStringList tabs READ tabs NOTIFY changed)
    Q_PROPERTY(bool advancedMode READ advancedMode WRITE setAdvancedMode NOTIFY changed)
    Q_PROPERTY(QString version READ version CONSTANT)

public:
    /// All outlive the adapter.
    SettingsAdapter(Application& application, WindowLife& life, RefreshQueue& queue, QObject* parent);

    bool isShown() const { return open_; }
    Q_INVOKABLE void open();
    /// Stores the draft and closes. An address that can't be one is told first: false, and nothing is done. Any text is
    /// accepted as an address when it is given again.
    Q_INVOKABLE bool accept();
    /// Closes, and forgets the draft.
    Q_INVOKABLE void cancel();

    QString address() const;
    void setAddress(const QString& address);
    /// What is wrong with the address that was not accepted, as a sentence; else empty.
    QString addressHint() const;
    int unit() const;
    void setUnit(int unit);
    static int minimumUnit();
    static int maximumUnit();
    bool polling() const;
    void setPolling(bool polling);
    bool serialPort() const;
    void setSerialPort(bool serial);
    int startTab() const;
    void setStartTab(int position);
    /// The titles of the tabs in the mode that is set.
    QStringList tabs() const;
    bool advancedMode() const;
    void setAdvancedMode(bool advanced);

    /// Of the program.
    static QString version();
    /// The program's licence.
    Q_INVOKABLE static QString licence();

    /// The caption of a setting in the user's language, by the setting's key; empty for an unknown key.
    Q_INVOKABLE static QString caption(const QString& key);
    /// What the setting does, in a sentence; empty where the caption says it all.
    Q_INVOKABLE static QString explanation(const QString& key);

private:
    void close();
    void setDraft(std::string_view key, SettingValue value);

    Application& application_;
    WindowLife& life_;
    bool open_ = false;
    MemorySettingsStore draft_;
    std::optional<std::string> told_; ///< the address that was not accepted
};

} // namespace lumbra
