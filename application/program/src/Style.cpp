#include <program/Style.h>

#include <QIcon>

namespace tallymere::program {

QIcon Style::standardIcon(StandardPixmap standard, QStyleOption const* option, QWidget const* widget) const
{
    switch (standard) {
    case SP_ToolBarHorizontalExtensionButton:
        return QIcon(QStringLiteral(":/icons/more.svg"));
    case SP_ToolBarVerticalExtensionButton:
        return QIcon(QStringLiteral(":/icons/moreBelow.svg"));
    default:
        return QProxyStyle::standardIcon(standard, option, widget);
    }
}
}
