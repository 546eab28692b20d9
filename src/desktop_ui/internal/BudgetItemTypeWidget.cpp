#include "internal/BudgetItemTypeWidget.h"

#include "internal/ComboBoxes.h"

#include <tlm/foundation/Error.h>

#include <array>

namespace tlm::desktop_ui::internal {

using budgeting::BudgetItemIdentifier;
using budgeting::BudgetItemTypes;
using budgeting::BudgetSource;
using foundation::QtPtr;

namespace {

constexpr std::array offered{BudgetItemTypes::Bill, BudgetItemTypes::Debt, BudgetItemTypes::Goal,
                             BudgetItemTypes::Nontrack, BudgetItemTypes::Wage};
constexpr auto blankRow = 0;
}

BudgetItemTypeWidget::BudgetItemTypeWidget(QtPtr<QWidget> const& parent) : QWidget(parent.get())
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    for (auto* const layout : {typeFrmlyt, sourceFrmlyt}) {
        layout->setFormAlignment(Qt::AlignLeft | Qt::AlignVCenter); // in one line with what stands beside it
    }
    typeCmbbx->addItem({});
    for (auto const type : offered) {
        typeCmbbx->addItem(presentationText(type));
    }
    settleContents(*typeCmbbx);
    sourceCmbbx->addItem({});
    connect(typeCmbbx, &QComboBox::currentIndexChanged, this, &BudgetItemTypeWidget::typeChanged);
    connect(sourceCmbbx, &QComboBox::currentIndexChanged, this, &BudgetItemTypeWidget::sourceChanged);
}

BudgetItemTypes BudgetItemTypeWidget::budgetItemType() const
{
    return budgeting::toBudgetItemTypes(typeCmbbx->currentText());
}

BudgetSource BudgetItemTypeWidget::budgetSource() const
{
    return BudgetSource(sourceCmbbx->currentText());
}

BudgetItemIdentifier BudgetItemTypeWidget::identifier() const
{
    return {budgetItemType(), budgetSource()};
}

void BudgetItemTypeWidget::setSources(std::set<BudgetSource> const& sources)
{
    sourceCmbbx->clear();
    sourceCmbbx->addItem({});
    for (auto const& source : sources) {
        sourceCmbbx->addItem(source.name());
    }
    settleContents(*sourceCmbbx);
}

void BudgetItemTypeWidget::select(BudgetItemIdentifier const& identifier)
{
    auto const before = typeCmbbx->currentIndex();
    if (identifier.type == BudgetItemTypes::None) {
        typeCmbbx->setCurrentIndex(blankRow);
    } else {
        typeCmbbx->setCurrentText(presentationText(identifier.type));
    }
    if (identifier.source.isEmpty()) {
        sourceCmbbx->setCurrentIndex(blankRow);
        return;
    }
    auto const& name = identifier.source.name();
    auto const row = sourceCmbbx->findText(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (row < 0) {
        typeCmbbx->setCurrentIndex(before);
        throw foundation::Error(tr("Failed to locate the budget item source '%1'.").arg(name));
    }
    sourceCmbbx->setCurrentIndex(row);
}

void BudgetItemTypeWidget::setReadOnly(bool isReadOnly)
{
    typeCmbbx->setEnabled(!isReadOnly);
    sourceCmbbx->setEnabled(!isReadOnly);
}

void BudgetItemTypeWidget::setTypeLabel(QString const& text)
{
    typeLbl->setText(text);
}

void BudgetItemTypeWidget::setSourceLabel(QString const& text)
{
    sourceLbl->setText(text);
}
}
