#include "Monkey.h"

#include <tlm/desktop_ui/MainWindow.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <array>
#include <cstdio>
#include <numeric>
#include <stdexcept>
#include <support/Widgets.h>

namespace tallymere {

namespace {

/// What is typed key by key; anything longer or odder is pasted, as a person would.
constexpr auto longestTyped = 40;

/// A menu or a question that blocks keeps an act from coming to its end for this long.
constexpr auto patience = 500;

/// A view that saves in two steps needs this long to get to its second one.
constexpr auto restingTime = 1'600;

bool canBeTyped(QString const& text)
{
    return text.size() <= longestTyped && text.isValidUtf16() &&
           std::ranges::all_of(text, [](QChar sign) { return sign.isSurrogate() || sign.isPrint(); });
}

QString nameOf(QWidget const& widget)
{
    return widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className()) : widget.objectName();
}
}

struct Monkey::WeightedTrick
{
    int weight;
    Trick trick;
};

Monkey::Monkey(tlm::desktop_ui::MainWindow& window, QString action, QStringList words, unsigned int seed)
    : window_(window), action_(std::move(action)), words_(std::move(words)), chance_(seed)
{
    blocked_.setInterval(patience);
    QObject::connect(&blocked_, &QTimer::timeout, &blocked_, [this] { leaveWhatBlocks(); });
}

void Monkey::act()
{
    blocked_.start();
    if (auto* const popup = QApplication::activePopupWidget()) {
        playInPopup(*popup);
    } else if (auto* const question = QApplication::activeModalWidget()) {
        answer(*question);
    } else {
        if (!isViewOpen()) {
            openView();
        }
        (this->*anyTrick())();
    }
    finishTypedDate();
    settle();
    blocked_.stop();
}

void Monkey::leaveWhatBlocks()
{
    if (QApplication::activePopupWidget() != nullptr || QApplication::activeModalWidget() != nullptr) {
        key(Qt::Key_Escape);
    }
}

void Monkey::openView()
{
    tell(QStringLiteral("opens the view"));
    auto const before = view_;
    if (action_.isEmpty()) {
        emit window_.prepareShowDashboard();
    } else {
        tlm::testing::child<QAction>(window_, action_).trigger();
    }
    settle();
    view_ = viewOnScreen();
    if (view_.contains(QStringLiteral("DashboardWidget")) != action_.isEmpty() ||
        (!before.isEmpty() && view_ != before)) {
        throw std::runtime_error("the view doesn't open");
    }
}

bool Monkey::isViewOpen() const
{
    return !view_.isEmpty() && view_ == viewOnScreen();
}

/// \return what tells one view from another, although one class shows all kinds of budget items
QString Monkey::viewOnScreen() const
{
    auto const* const heading = view().findChild<QLabel*>(QStringLiteral("displayingLbl"));
    return QString::fromLatin1(view().metaObject()->className()) + (heading == nullptr ? QString() : heading->text());
}

Monkey::Trick Monkey::anyTrick()
{
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

/// Takes the program to where it would come to rest in its own event loop.
void Monkey::settle()
{
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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

void Monkey::playInPopup(QWidget& popup)
{
    if (chance_.isOneOf(4)) {
        click(popup, anyPlaceIn(popup));
        return;
    }
    static constexpr std::array keys{Qt::Key_Down,   Qt::Key_Down,   Qt::Key_Up,    Qt::Key_End,    Qt::Key_Home,
                                     Qt::Key_Return, Qt::Key_Return, Qt::Key_Space, Qt::Key_Escape, Qt::Key_PageDown};
    key(chance_.pick(keys));
}

/// Qt loses what it holds of a date that is being typed when its calendar goes away.
void Monkey::finishTypedDate()
{
    auto const* const popup = QApplication::activePopupWidget();
    auto const* const calendar = popup == nullptr ? nullptr : popup->findChild<QCalendarWidget*>();
    if (calendar != nullptr && calendar->findChild<QLabel*>() != nullptr) {
        key(Qt::Key_Escape);
    }
}

void Monkey::answer(QWidget& question)
{
    auto const buttons = question.findChildren<QAbstractButton*>();
    if (buttons.isEmpty() || chance_.isOneOf(4)) {
        key(Qt::Key_Escape);
        return;
    }
    auto* const button = chance_.pick(buttons);
    click(*button, button->rect().center());
}

QWidget& Monkey::view() const
{
    return *window_.centralWidget();
}

/// \return any widget of the type that the view shows, nullptr when it shows none
template <typename T>
T* Monkey::anyVisible()
{
    auto widgets = view().findChildren<T*>();
    widgets.removeIf([](T const* widget) { return !widget->isVisible(); });
    return widgets.isEmpty() ? nullptr : chance_.pick(widgets);
}

QPoint Monkey::anyPlaceIn(QWidget const& widget)
{
    return {chance_.below(std::max(1, widget.width())), chance_.below(std::max(1, widget.height()))};
}

void Monkey::click(QWidget& widget, QPoint const& place, Qt::KeyboardModifiers modifiers)
{
    auto const* const window = widget.window();
    auto const inWindow = widget.mapTo(window, place);
    if (!window->rect().contains(inWindow)) {
        return;
    }
    tell(QStringLiteral("clicks on ") + nameOf(widget));
    auto* const handle = window->windowHandle();
    if (chance_.isOneOf(12)) {
        QTest::mouseDClick(handle, Qt::LeftButton, modifiers, inWindow);
    } else {
        QTest::mouseClick(handle, chance_.isOneOf(25) ? Qt::RightButton : Qt::LeftButton, modifiers, inWindow);
    }
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

void Monkey::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    tell(QStringLiteral("presses ") + QKeySequence(key | modifiers).toString());
    auto const* target = QApplication::activePopupWidget();
    if (target == nullptr) {
        target = QApplication::activeModalWidget();
    }
    QTest::keyClick((target == nullptr ? &window_ : target)->windowHandle(), key, modifiers);
}

void Monkey::enter(QString const& text)
{
    tell(QStringLiteral("enters \"%1\"").arg(text.left(longestTyped)));
    if (text.isEmpty()) {
        key(Qt::Key_Delete);
        return;
    }
    if (chance_.isOneOf(3) || !canBeTyped(text)) {
        QApplication::clipboard()->setText(text);
        key(Qt::Key_V, Qt::ControlModifier);
        return;
    }
    for (auto const codePoint : text.toUcs4()) {
        auto const sign = static_cast<char32_t>(codePoint);
        auto const known = codePoint < 0x80 ? QTest::asciiToKey(static_cast<char>(codePoint)) : Qt::Key_unknown;
        QTest::sendKeyEvent(QTest::Click, window_.windowHandle(), known, QString::fromUcs4(&sign, 1), Qt::NoModifier);
    }
}

void Monkey::tell(QString const& what)
{
    constexpr auto most = 40;
    static auto const isTraced = qEnvironmentVariableIsSet("TALLYMERE_MONKEY_TRACE");
    lastActs_.append(what);
    if (lastActs_.size() > most) {
        lastActs_.removeFirst();
    }
    if (isTraced) {
        std::fprintf(stderr, "%s\n", qPrintable(what));
    }
}
}
