#include "internal/TextListModel.h"

namespace tlm::desktop_ui::internal {

namespace {

/// For so few texts a box spends less on an item each than on another model.
constexpr auto cheapestByItem = 8;

bool isText(int role)
{
    return role == Qt::DisplayRole || role == Qt::EditRole;
}
}

void TextListModel::append(QStringList const& texts)
{
    auto const all = texts_.isEmpty() ? texts : texts_ + texts;
    // A combo box selects its first item as soon as it comes, and tells so before there are others.
    growTo(all, texts_.size() + 1);
    growTo(all, all.size());
}

void TextListModel::growTo(QStringList const& texts, qsizetype size)
{
    if (texts_.size() < size && size <= texts.size()) {
        beginInsertRows({}, static_cast<int>(texts_.size()), static_cast<int>(size) - 1);
        texts_ = texts.mid(0, size); // the same memory once it is all of them
        endInsertRows();
    }
}

int TextListModel::rowCount(QModelIndex const& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(texts_.size());
}

QVariant TextListModel::data(QModelIndex const& index, int role) const
{
    return index.isValid() && isText(role) ? QVariant(texts_.at(index.row())) : QVariant();
}

bool TextListModel::setData(QModelIndex const& index, QVariant const& value, int role)
{
    if (!index.isValid() || !isText(role)) {
        return false;
    }
    texts_[index.row()] = value.toString();
    emit dataChanged(index, index, {Qt::DisplayRole, Qt::EditRole});
    return true;
}

bool TextListModel::insertRows(int row, int count, QModelIndex const& parent)
{
    if (parent.isValid() || count < 1 || row < 0 || row > texts_.size()) {
        return false;
    }
    beginInsertRows(parent, row, row + count - 1);
    texts_.insert(row, count, QString());
    endInsertRows();
    return true;
}

bool TextListModel::removeRows(int row, int count, QModelIndex const& parent)
{
    if (parent.isValid() || count < 1 || row < 0 || row + count > texts_.size()) {
        return false;
    }
    beginRemoveRows(parent, row, row + count - 1);
    texts_.remove(row, count);
    endRemoveRows();
    return true;
}

void appendTexts(QComboBox& box, QStringList const& texts)
{
    auto* model = dynamic_cast<TextListModel*>(box.model());
    if (model == nullptr && (box.count() > 0 || texts.size() <= cheapestByItem)) {
        for (auto const& text : texts) {
            box.addItem(text);
        }
        return;
    }
    if (model == nullptr) {
        model = new TextListModel(&box);
        box.setModel(model);
    }
    model->append(texts);
}
}
