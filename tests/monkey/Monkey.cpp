#include "Monkey.h"

#include <tlm/desktop_ui/MainWindow.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QClipboard>
#include <QKeySequence>
#include <QLabel>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>
#include <support/Widgets.h>

namespace tallymere {

namespace {

/// What is typed key by key; anything longer or odder is pasted, as a person would.
constexpr auto longestTyped = 40;

/// A menu or a question that blocks keeps an act from coming to its end for this long.
constexpr auto patience = 500;

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

Monkey::Monkey(tlm::desktop_ui::MainWindow& window, QString action, Manner manner, QStringList words, unsigned int seed)
    : window_(window), action_(std::move(action)), manner_(manner), words_(std::move(words)), chance_(seed)
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

/// Takes the program to where it would come to rest in its own event loop.
void Monkey::settle()
{
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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
