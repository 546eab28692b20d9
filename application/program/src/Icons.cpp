#include <program/Icons.h>

#include <QAction>
#include <QApplication>
#include <QHash>
#include <QIcon>
#include <QMainWindow>
#include <QToolBar>

namespace tallymere::program {

namespace {

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

QString plainText(QAction const& action)
{
    return action.text().remove(QLatin1Char('&'));
}

/// Tool bars carry actions of their own: each wears the icon of the menu's action of the same text.
void dressToolBars(QMainWindow& window, QHash<QString, QIcon> const& byText)
{
    for (auto* const bar : window.findChildren<QToolBar*>()) {
        bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        for (auto* const action : bar->actions()) {
            action->setIcon(byText.value(plainText(*action)));
        }
    }
}
}

void dress(QMainWindow& window)
{
    QApplication::setWindowIcon(own("tallymere"));
    QHash<QString, QIcon> byText;
    for (auto const& entry : actionIcons) {
        if (auto* const action = window.findChild<QAction*>(QLatin1String(entry.action))) {
            action->setIcon(iconOf(entry));
            byText.insert(plainText(*action), action->icon());
        }
    }
    dressToolBars(window, byText);
}
}
