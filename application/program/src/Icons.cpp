#include <program/Icons.h>

#include <QAction>
#include <QApplication>
#include <QIcon>
#include <QMainWindow>
#include <QMenu>
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

QIcon iconOf(ActionIcon const& entry)
{
    if (entry.theme != nullptr && QIcon::hasThemeIcon(QLatin1String(entry.theme))) {
        return QIcon::fromTheme(QLatin1String(entry.theme));
    }
    return own(entry.file);
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
        action.setIcon(iconOf(*entry));
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
                action->setIcon(iconOf(*entry));
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
