#include "Monkey.h"

#include <tlm/desktop_ui/MainWindow.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

#include <array>
#include <numeric>
#include <stdexcept>
#include <support/Widgets.h>

namespace tallymere {

namespace {

/// A view that saves in two steps needs this long to get to its second one.
constexpr auto restingTime = 1'600;
}

struct Monkey::WeightedTrick
{
    int weight;
    Trick trick;
};

/// \return the widgets of the type that the view shows
template <typename T>
QList<T*> Monkey::allVisible() const
{
    auto widgets = view().findChildren<T*>();
    widgets.removeIf([](T const* widget) { return !widget->isVisible(); });
    return widgets;
}

/// \return any widget of the type that the view shows, nullptr when it shows none
template <typename T>
T* Monkey::anyVisible()
{
    auto const widgets = allVisible<T>();
    return widgets.isEmpty() ? nullptr : chance_.pick(widgets);
}

Monkey::Trick Monkey::anyTrick()
{
    constexpr auto actsBetweenFilledForms = 25;
    if (manner_ == Manner::Earnest && chance_.isOneOf(actsBetweenFilledForms)) {
        return &Monkey::fillIn;
    }
    static constexpr std::array<WeightedTrick, 14> tricks{{{180, &Monkey::clickSomewhere},
                                                           {220, &Monkey::typeSomewhere},
                                                           {160, &Monkey::pressKey},
                                                           {110, &Monkey::chooseInBox},
                                                           {80, &Monkey::tick},
                                                           {50, &Monkey::step},
                                                           {130, &Monkey::pushButton},
                                                           {110, &Monkey::pickRow},
                                                           {10, &Monkey::clickHeading},
                                                           {30, &Monkey::scroll},
                                                           {5, &Monkey::resize},
                                                           {5, &Monkey::reopen},
                                                           {5, &Monkey::saveFile},
                                                           {3, &Monkey::rest}}};
    static constexpr auto total =
        std::accumulate(tricks.begin(), tricks.end(), 0, [](int sum, auto const& trick) { return sum + trick.weight; });
    auto left = chance_.below(total);
    for (auto const& [weight, trick] : tricks) {
        if ((left -= weight) < 0) {
            return trick;
        }
    }
    throw std::logic_error("the weights don't add up");
}

void Monkey::clickSomewhere()
{
    auto* const widget = anyVisible<QWidget>();
    if (widget == nullptr) {
        return;
    }
    approach(*widget);
    static constexpr std::array modifiers{Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier,
                                          Qt::ControlModifier};
    click(*widget, anyPlaceIn(*widget), chance_.pick(modifiers));
}

void Monkey::typeSomewhere()
{
    auto* const field = anyVisible<QLineEdit>();
    if (field == nullptr) {
        return;
    }
    approach(*field);
    auto const isAmount = field->objectName() == QLatin1String("amountLndt");
    click(*field, field->rect().center());
    if (!chance_.isOneOf(4)) {
        key(Qt::Key_A, Qt::ControlModifier);
    }
    enter(isAmount ? anyAmount() : chance_.pick(words_));
    if (chance_.isOneOf(2)) {
        key(chance_.isOneOf(4) ? Qt::Key_Return : Qt::Key_Tab);
    }
}

/// \return mostly an amount that the books can take, so that they get something to keep
QString Monkey::anyAmount()
{
    return chance_.isOneOf(3) ? chance_.pick(words_) : QString::number(1 + chance_.below(500));
}

void Monkey::pressKey()
{
    using Stroke = std::pair<Qt::Key, Qt::KeyboardModifiers>;
    static std::array<Stroke, 27> const strokes{{{Qt::Key_Tab, {}},
                                                 {Qt::Key_Tab, {}},
                                                 {Qt::Key_Tab, {}},
                                                 {Qt::Key_Backtab, Qt::ShiftModifier},
                                                 {Qt::Key_Return, {}},
                                                 {Qt::Key_Enter, {}},
                                                 {Qt::Key_Escape, {}},
                                                 {Qt::Key_Space, {}},
                                                 {Qt::Key_Space, {}},
                                                 {Qt::Key_Up, {}},
                                                 {Qt::Key_Down, {}},
                                                 {Qt::Key_Left, {}},
                                                 {Qt::Key_Right, {}},
                                                 {Qt::Key_PageUp, {}},
                                                 {Qt::Key_PageDown, {}},
                                                 {Qt::Key_Home, {}},
                                                 {Qt::Key_End, {}},
                                                 {Qt::Key_Delete, {}},
                                                 {Qt::Key_Backspace, {}},
                                                 {Qt::Key_Insert, {}},
                                                 {Qt::Key_F2, {}},
                                                 {Qt::Key_Z, Qt::ControlModifier},
                                                 {Qt::Key_X, Qt::ControlModifier},
                                                 {Qt::Key_C, Qt::ControlModifier},
                                                 {Qt::Key_V, Qt::ControlModifier},
                                                 {Qt::Key_Down, Qt::AltModifier},
                                                 {Qt::Key_Menu, {}}}};
    auto const [stroke, modifiers] = chance_.pick(strokes);
    key(stroke, modifiers);
}

void Monkey::chooseInBox()
{
    auto* const box = anyVisible<QComboBox>();
    if (box == nullptr) {
        return;
    }
    approach(*box);
    if (chance_.isOneOf(3)) {
        click(*box, box->rect().center());
        return;
    }
    box->setFocus(Qt::TabFocusReason);
    static constexpr std::array keys{Qt::Key_Up, Qt::Key_Down, Qt::Key_Down, Qt::Key_End, Qt::Key_Home, Qt::Key_S};
    auto const wanted = chance_.pick(keys);
    for (auto times = chance_.below(6); times >= 0; --times) {
        key(wanted);
    }
}

void Monkey::tick()
{
    if (auto* const box = anyVisible<QCheckBox>()) {
        approach(*box);
        click(*box, {8, box->height() / 2});
    }
}

/// Steps a day, a part of a day or a number up or down, or types over it.
void Monkey::step()
{
    auto* const spinner = anyVisible<QAbstractSpinBox>();
    if (spinner == nullptr) {
        return;
    }
    approach(*spinner);
    spinner->setFocus(Qt::TabFocusReason);
    static constexpr std::array keys{Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Right};
    for (auto times = chance_.below(4); times >= 0; --times) {
        key(chance_.pick(keys));
    }
    if (chance_.isOneOf(3)) {
        key(Qt::Key_A, Qt::ControlModifier);
        enter(chance_.pick(words_));
    }
}

/// Fills in all that is on view as a person would who means it, and saves.
void Monkey::fillIn()
{
    for (auto* const box : allVisible<QComboBox>()) {
        approach(*box);
        box->setFocus(Qt::TabFocusReason);
        key(Qt::Key_Home);
        for (auto times = chance_.below(3); times >= 0; --times) {
            key(Qt::Key_Down);
        }
    }
    for (auto* const field : allVisible<QLineEdit>()) {
        typeInto(*field, field->objectName() == QLatin1String("amountLndt") ? QString::number(1 + chance_.below(500))
                                                                            : chance_.pick(words_));
        key(Qt::Key_Tab);
    }
    for (auto const* const box : allVisible<QDialogButtonBox>()) {
        if (auto* const save = box->button(QDialogButtonBox::Save)) {
            click(*save, save->rect().center());
        }
    }
}

/// Types \a text over what \a field holds.
void Monkey::typeInto(QLineEdit& field, QString const& text)
{
    approach(field);
    click(field, field.rect().center());
    key(Qt::Key_A, Qt::ControlModifier);
    enter(text);
}

/// Adds, saves or discards.
void Monkey::pushButton()
{
    auto* const box = anyVisible<QDialogButtonBox>();
    if (box == nullptr) {
        return;
    }
    auto const buttons = box->buttons();
    auto* const button = buttons.at(chance_.below(static_cast<int>(buttons.size())));
    if (box->standardButton(button) == QDialogButtonBox::Discard && !chance_.isOneOf(4)) {
        return;
    }
    tell(QStringLiteral("aims at the button ") + button->text());
    click(*button, button->rect().center());
}

void Monkey::pickRow()
{
    auto* const list = anyVisible<QAbstractItemView>();
    if (list == nullptr || list->model() == nullptr) {
        return;
    }
    QModelIndex row;
    for (auto depth = 0; depth < 3 && list->model()->rowCount(row) > 0 && (depth == 0 || !chance_.isOneOf(3));
         ++depth) {
        auto const& model = *list->model();
        row = model.index(chance_.below(model.rowCount(row)), 0, row);
    }
    list->scrollTo(row);
    if (auto const place = list->visualRect(row); !place.isEmpty()) {
        click(*list->viewport(), place.center());
    }
}

void Monkey::clickHeading()
{
    if (auto* const heading = anyVisible<QHeaderView>()) {
        click(*heading->viewport(), anyPlaceIn(*heading->viewport()));
    }
}

void Monkey::scroll()
{
    if (auto* const bar = anyVisible<QScrollBar>()) {
        tell(QStringLiteral("scrolls"));
        bar->setValue(bar->minimum() + chance_.below(bar->maximum() - bar->minimum() + 1));
    }
}

void Monkey::resize()
{
    tell(QStringLiteral("resizes the window"));
    auto const least = window_.minimumSize();
    window_.resize(least.width() + chance_.below(600), least.height() + chance_.below(500));
}

void Monkey::reopen()
{
    openView();
}

void Monkey::saveFile()
{
    tell(QStringLiteral("saves the budget file"));
    tlm::testing::child<QAction>(window_, QStringLiteral("saveActn")).trigger();
}

void Monkey::rest()
{
    tell(QStringLiteral("rests"));
    QTest::qWait(restingTime);
}

/// Scrolls to \a widget.
void Monkey::approach(QWidget& widget)
{
    for (auto* around = widget.parentWidget(); around != nullptr; around = around->parentWidget()) {
        if (auto* const scroller = qobject_cast<QScrollArea*>(around)) {
            scroller->ensureWidgetVisible(&widget);
        }
    }
}
}
