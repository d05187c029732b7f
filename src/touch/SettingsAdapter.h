#pragma once

#include "app/Application.h"
#include "app/WindowLife.h"
#include "touch/Adapter.h"

#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace lumbra {

/// Exposes the six settings to QML. The settings screen counts as outside the application: opening it leaves
/// the application, closing it returns, and only then are changed settings read. Each change is stored at
/// once.
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

public:
    /// All outlive the adapter.
    SettingsAdapter(Application& application, WindowLife& life, RefreshQueue& queue, QObject* parent);

    bool isShown() const { return open_; }
    Q_INVOKABLE void open();
    Q_INVOKABLE void close();

    QString address() const;
    void setAddress(const QString& address);
    /// A hint about an unusual address, as a sentence; empty if there is none.
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

    /// The caption of a setting in the user's language, by the setting's key; empty for an unknown key.
    Q_INVOKABLE static QString caption(const QString& key);

private:
    void store(std::string_view key, SettingValue value);

    Application& application_;
    WindowLife& life_;
    bool open_ = false;
};

} // namespace lumbra
