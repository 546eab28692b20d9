#include <program/Icons.h>

#include <QAction>
#include <QApplication>
#include <QIcon>
#include <QIconEngine>
#include <QMainWindow>
#include <QMenu>
#include <QPainter>
#include <QTimer>
#include <QToolBar>

#include <algorithm>
#include <chrono>

namespace tallymere::program {

namespace {

constexpr std::chrono::milliseconds afterPainting{20}; // the figures of the budget come first, and nobody sees the wait

struct ActionIcon
{
    char const* action; // object name
    char const* file;   // the program's own icon
    char const* theme;  // name in the desktop's theme, nullptr where themes have nothing that fits
};

constexpr ActionIcon actionIcons[] = {
    {"exitActn", "exit", "application-exit"},
    {"openActn", "open", "document-open"},
    {"saveActn", "save", "document-save"},
    {"saveAsActn", "saveAs", "document-save-as"},
    {"reloadActn", "reload", "view-refresh"},
    {"emptyActn", "empty", "document-new"},
    {"wizardActn", "wizard", "tools-wizard"},
    {"billsActn", "bills", nullptr},
    {"debtsActn", "debts", nullptr},
    {"goalsActn", "goals", nullptr},
    {"nontracksActn", "nontracks", nullptr},
    {"wagesActn", "wages", nullptr},
    {"accountsActn", "accounts", nullptr},
    {"ledgersActn", "ledgers", nullptr},
    {"banksActn", "banks", nullptr},
    {"processActn", "process", nullptr},
    {"refundActn", "refund", nullptr},
    {"reconciliationActn", "reconciliation", nullptr},
    {"transferActn", "transfer", nullptr},
    {"configureActn", "configure", "preferences-system"},
    {"exchangeRatesActn", "exchangeRates", nullptr},
    {"handbookActn", "handbook", "help-contents"},
    {"releaseNotesActn", "releaseNotes", nullptr},
    {"aboutActn", "about", "help-about"},
};

QIcon own(char const* file)
{
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(file)));
}

/// A picture in a menu. Its colours would be lost in the highlight of the chosen entry, so there it takes that of the text.
class MenuPicture : public QIconEngine
{
public:
    explicit MenuPicture(QIcon const& picture) : picture_(picture) {}

    void paint(QPainter* painter, QRect const& place, QIcon::Mode mode, QIcon::State state) override
    {
        painter->drawPixmap(place, pixmap(place.size(), mode, state));
    }

    QPixmap pixmap(QSize const& size, QIcon::Mode mode, QIcon::State state) override
    {
        auto drawn = picture_.pixmap(size, 1, mode, state);
        if (mode == QIcon::Active) {
            QPainter painter(&drawn);
            painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
            painter.fillRect(drawn.rect(), QApplication::palette().highlightedText());
        }
        return drawn;
    }

    QIconEngine* clone() const override { return new MenuPicture(*this); }

private:
    QIcon picture_;
};

QIcon ownInMenu(char const* file)
{
    return QIcon(new MenuPicture(own(file))); // which owns the engine
}

QIcon iconOf(ActionIcon const& entry, QIcon (*ours)(char const* file))
{
    if (entry.theme != nullptr && QIcon::hasThemeIcon(QLatin1String(entry.theme))) {
        return QIcon::fromTheme(QLatin1String(entry.theme));
    }
    return ours(entry.file);
}

ActionIcon const* entryOf(QAction const& action)
{
    auto const* const found = std::ranges::find_if(
        actionIcons, [&action](auto const& entry) { return action.objectName() == QLatin1String(entry.action); });
    return found == std::ranges::end(actionIcons) ? nullptr : found;
}

void dress(QAction& action)
{
    if (auto const* const entry = entryOf(action)) {
        action.setIcon(iconOf(*entry, ownInMenu));
    }
}

/// Pictures take time to read, and most starts of the program open no menu.
void dressOnceOpened(QMenu& menu)
{
    auto const dressAll = [&menu] { std::ranges::for_each(menu.actions(), [](auto* action) { dress(*action); }); };
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, dressAll, Qt::SingleShotConnection);
}

QString plainText(QAction const& action)
{
    return action.text().remove(QLatin1Char('&'));
}

/// Tool bars carry actions of their own: each wears the icon of the menu's action of the same text.
void dress(QToolBar const& bar, QList<QAction*> const& actions)
{
    for (auto* const action : bar.actions()) {
        for (auto const* const model : actions) {
            if (auto const* const entry = entryOf(*model);
                entry != nullptr && plainText(*model) == plainText(*action)) {
                action->setIcon(iconOf(*entry, own));
            }
        }
    }
}

/// Keeps room for the icons to come, so that nothing moves then.
void makeRoom(QToolBar& bar)
{
    bar.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    QPixmap blank(bar.iconSize());
    blank.fill(Qt::transparent);
    for (auto* const action : bar.actions()) {
        action->setIcon(blank);
    }
}

void dressShown(QMainWindow const& window)
{
    QApplication::setWindowIcon(own("tallymere"));
    auto const actions = window.findChildren<QAction*>();
    for (auto const* const bar : window.findChildren<QToolBar*>()) {
        dress(*bar, actions);
    }
}

/// Each widget asks to be painted when it is shown, on top of being painted with the window that is shown with it.
void dropSecondPainting()
{
    QCoreApplication::removePostedEvents(nullptr, QEvent::UpdateLater);
}

/// Drawing pictures takes a good part of a start, so these come right after the window itself is on screen.
class DresserOfShown : public QObject
{
public:
    explicit DresserOfShown(QMainWindow& window) : QObject(&window), window_(window)
    {
        window_.installEventFilter(this);
    }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            window_.removeEventFilter(this);
            dropSecondPainting();
            QMetaObject::invokeMethod(this, &DresserOfShown::dressSoon, Qt::QueuedConnection);
        }
        return false;
    }

private:
    /// The wait begins when all is painted, however long that took.
    void dressSoon()
    {
        QTimer::singleShot(afterPainting, this, [this] {
            dressShown(window_);
            deleteLater();
        });
    }

    QMainWindow& window_;
};
}

void dress(QMainWindow& window)
{
    for (auto* const menu : window.findChildren<QMenu*>()) {
        dressOnceOpened(*menu);
    }
    for (auto* const bar : window.findChildren<QToolBar*>()) {
        makeRoom(*bar);
    }
    new DresserOfShown(window);
}
}
