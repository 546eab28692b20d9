#pragma once

#include <QProxyStyle>

namespace tallymere::program {

/// The platform's style, but for the arrow of tool bars and menu bars that lack room: its own one is a small bitmap, which
/// blurs on fine screens and vanishes on dark ones, and reading it has every image format's plugin loaded at each start.
class Style : public QProxyStyle
{
public:
    QIcon standardIcon(StandardPixmap standard, QStyleOption const* option = nullptr,
                       QWidget const* widget = nullptr) const override;
};
}
