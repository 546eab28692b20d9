#pragma once

#include <QAbstractListModel>
#include <QComboBox>
#include <QStringList>

namespace tlm::desktop_ui::internal {

/// Items of a combo box that are texts alone. Combo boxes that were given the same list share its memory until one changes.
class TextListModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    /// Adds \a texts below the present ones.
    void append(QStringList const& texts);

    int rowCount(QModelIndex const& parent = {}) const override;
    QVariant data(QModelIndex const& index, int role) const override;
    bool setData(QModelIndex const& index, QVariant const& value, int role) override;
    bool insertRows(int row, int count, QModelIndex const& parent) override;
    bool removeRows(int row, int count, QModelIndex const& parent) override;

private:
    void growTo(QStringList const& texts, qsizetype size);

    QStringList texts_;
};

/// Adds \a texts to \a box as QComboBox::addItem() would, each in turn, but without copying them.
///
/// \param box emits the same signals as there
void appendTexts(QComboBox& box, QStringList const& texts);
}
