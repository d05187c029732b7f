#include "touch/ItemListAdapter.h"

#include "app/Silence.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

namespace lumbra {

namespace {

enum Role { Name = Qt::UserRole, Input, AskedInput, Level, AskedLevel, Silence, Spoken };

QString conditionOf(const ItemRow& row) {
    const auto condition = silenceOf(row);
    return condition ? translatedText(*condition) : QString();
}

/// A value and what was asked for since, for a screen reader.
QString spokenValue(const QString& value, const QString& asked) {
    //: %1 is what the unit has reported, %2 what it has been asked for since
    return asked.isEmpty() ? value
                           : QCoreApplication::translate("System", "%1, asked for %2").arg(value, asked);
}

} // namespace

int ItemListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant ItemListModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const auto& row = rows_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case Name:
        return shownName(row.name);
    case Input:
        return row.known.input ? shownName(row.input) : unknownText();
    case AskedInput:
        return shownName(row.askedInput.value_or(""));
    case Level:
        return row.known.volume ? shownText(row.level) : unknownText();
    case AskedLevel:
        return row.askedLevel ? shownText(*row.askedLevel) : QString();
    case Silence:
        return conditionOf(row);
    case Spoken: {
        QStringList words{shownName(row.name),
                          spokenValue(row.known.input ? shownName(row.input) : spokenUnknown(),
                                      data(index, AskedInput).toString()),
                          spokenValue(row.known.volume ? spokenText(row.level) : spokenUnknown(),
                                      row.askedLevel ? spokenText(*row.askedLevel) : QString())};
        if (const auto condition = conditionOf(row); !condition.isEmpty())
            words << condition;
        return words.join(QStringLiteral(", "));
    }
    default:
        return {};
    }
}

QHash<int, QByteArray> ItemListModel::roleNames() const {
    return {{Name, "name"},    {Input, "input"},           {AskedInput, "askedInput"},
            {Level, "level"},  {AskedLevel, "askedLevel"}, {Silence, "condition"},
            {Spoken, "spoken"}};
}

void ItemListModel::update(const ItemList& list) {
    const auto has = list.rowCount();
    if (has < rows_.size()) {
        beginRemoveRows({}, static_cast<int>(has), static_cast<int>(rows_.size()) - 1);
        rows_.resize(has);
        endRemoveRows();
    }
    for (std::size_t row = 0; row < rows_.size(); ++row)
        if (auto item = list.row(row); item != rows_[row]) {
            rows_[row] = std::move(item);
            const auto changed = index(static_cast<int>(row));
            Q_EMIT dataChanged(changed, changed);
        }
    if (has > rows_.size()) {
        beginInsertRows({}, static_cast<int>(rows_.size()), static_cast<int>(has) - 1);
        while (rows_.size() < has)
            rows_.push_back(list.row(rows_.size()));
        endInsertRows();
    }
}

ItemListAdapter::ItemListAdapter(const ItemList& list, const View& view, Application& application,
                                 RefreshQueue& queue, QObject* parent)
    : Adapter(queue, parent), list_(list), application_(application), queue_(queue) {
    const auto tell = [this] { mark(); };
    for (const auto& item : view.items())
        if (auto picker = std::dynamic_pointer_cast<Picker>(item.control); picker && !item.sends)
            picker_ = std::move(picker);
    subscriptions_.push_back(picker_->onChange(tell));
    subscriptions_.push_back(list.onRowChange([tell](auto) { tell(); }));
    subscriptions_.push_back(application.status().onChange([this] {
        for (auto* const adapter : adapters_)
            adapter->setLocked(application_.hands().isLocked());
    }));
    rows_.update(list_);
}

std::optional<ItemRow> ItemListAdapter::selected() const {
    const auto selected = static_cast<std::size_t>(picker_->selected()); // -1 is beyond the rows
    return selected < list_.rowCount() ? std::optional(list_.row(selected)) : std::nullopt;
}

std::optional<Reading> ItemListAdapter::reported() const {
    const auto row = selected();
    return row && row->known.volume ? std::optional(row->level) : std::nullopt;
}

QString ItemListAdapter::condition() const {
    const auto row = selected();
    return row ? conditionOf(*row) : QString();
}

QString ItemListAdapter::level() const {
    const auto level = reported();
    return level ? shownText(*level) : unknownText();
}

QString ItemListAdapter::spokenLevel() const {
    const auto level = reported();
    const auto spoken = level ? spokenText(*level) : spokenUnknown();
    return condition().isEmpty() ? spoken : spoken + QStringLiteral(", ") + condition();
}

SliderAdapter* ItemListAdapter::volumeAt(int row, const QString& name) {
    const auto at = static_cast<std::size_t>(row); // below 0 it is beyond the rows
    const auto slider = list_.volumeAt(at, givenNameAt(at, name));
    return adapterOf<SliderAdapter>(slider.get(), [&] {
        return new SliderAdapter(slider, application_.hands().on(slider), "Volume", queue_, this);
    });
}

SwitchAdapter* ItemListAdapter::muteAt(int row, const QString& name) {
    const auto at = static_cast<std::size_t>(row);
    const auto onOff = list_.muteAt(at, givenNameAt(at, name));
    return adapterOf<SwitchAdapter>(onOff.get(),
                                    [&] { return new SwitchAdapter(onOff, "Mute", queue_, this); });
}

std::string ItemListAdapter::givenNameAt(std::size_t row, const QString& name) const {
    return row < list_.rowCount() ? givenName(name, list_.row(row).name) : std::string();
}

template <class AdapterType, class Make>
AdapterType* ItemListAdapter::adapterOf(const Control* control, Make make) {
    if (!control)
        return nullptr;
    auto*& adapter = adapters_[control];
    if (!adapter) {
        adapter = make();
        adapter->setLocked(application_.hands().isLocked());
    }
    return static_cast<AdapterType*>(adapter);
}

void ItemListAdapter::refresh() {
    rows_.update(list_);
    Adapter::refresh();
}

} // namespace lumbra
