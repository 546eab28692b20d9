#pragma once

#include "support/Widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QVBoxLayout>

#include <vector>

namespace tlm::testing {

/// The controls of one budget item on a planning view.
class PlanningRow
{
public:
    /// \param form must outlive the row
    explicit PlanningRow(QWidget& form) : form_(form) {}

    QWidget& form() const { return form_; }
    QLineEdit& source() const { return child<QLineEdit>(form_, QStringLiteral("sourceLndt")); }
    QWidget& perPeriod() const { return child<QWidget>(form_, QStringLiteral("perPeriodWdgt")); }
    QLineEdit& amount() const { return amountOf(perPeriod()); }
    QComboBox& currency() const { return child<QComboBox>(perPeriod(), QStringLiteral("codeCmbbx")); }
    QComboBox& period() const { return child<QComboBox>(form_, QStringLiteral("periodCmbbx")); }
    QDateEdit& dueNext() const { return child<QDateEdit>(form_, QStringLiteral("nextOccurOnDtdt")); }
    QCheckBox& remove() const { return child<QCheckBox>(form_, QStringLiteral("removeChckbx")); }

    /// Extras of debts and goals, which have no object names.
    QLineEdit& borrowed() const { return amountOf(told("Total amount borrowed from the debt source")); }
    QLineEdit& finalTotal() const { return amountOf(told("Final total amount of the goal")); }
    QWidget& interest() const { return told("Interest rate on the debt"); }
    QComboBox& bank() const { return child<QComboBox>(form_, QStringLiteral("bankCmbbx")); }
    QComboBox& account() const { return child<QComboBox>(form_, QStringLiteral("accountCmbbx")); }
    QComboBox& accountType() const { return child<QComboBox>(form_, QStringLiteral("typeCmbbx")); }

    /// \return what the row tells to be wrong with it, empty when nothing is
    QString error() const
    {
        auto const& line = child<QWidget>(form_, QStringLiteral("errorWdgt"));
        return line.isHidden() ? QString() : child<QLabel>(line, QStringLiteral("messageLbl")).text();
    }

private:
    static QLineEdit& amountOf(QWidget const& entry) { return child<QLineEdit>(entry, QStringLiteral("amountLndt")); }

    /// \return the child with the tool tip \a toolTip
    QWidget& told(char const* toolTip) const
    {
        for (auto* const each : form_.findChildren<QWidget*>()) {
            if (each->toolTip() == QLatin1String(toolTip)) {
                return *each;
            }
        }
        throw std::runtime_error(std::string("no control told as ") + toolTip);
    }

    QWidget& form_;
};

/// \return the rows of the planning view within \a window, from top to bottom
inline std::vector<PlanningRow> planningRows(QWidget const& window)
{
    std::vector<PlanningRow> rows;
    auto const& entries = child<QVBoxLayout>(window, QStringLiteral("budgetedMoneyEntriesVbxlyt"));
    for (int index = 0; index < entries.count(); ++index) {
        if (auto* const form = entries.itemAt(index)->widget()) {
            rows.emplace_back(*form);
        }
    }
    return rows;
}

/// \return the row of the item called \a name
/// \throws std::runtime_error when none is shown
inline PlanningRow planningRow(QWidget const& window, QString const& name)
{
    for (auto const& row : planningRows(window)) {
        if (row.source().text() == name) {
            return row;
        }
    }
    throw std::runtime_error("no row for " + name.toStdString());
}
}
