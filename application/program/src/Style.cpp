#include <program/Style.h>

#include <QIcon>
#include <QIconEngine>

namespace tallymere::program {

namespace {

/// A picture that is read when it is drawn first, since each tool bar asks for its arrow but few need it.
class LatePicture : public QIconEngine
{
public:
    explicit LatePicture(QString const& file) : file_(file) {}

    void paint(QPainter* painter, QRect const& place, QIcon::Mode mode, QIcon::State state) override
    {
        picture().paint(painter, place, Qt::AlignCenter, mode, state);
    }

    /// The engine's own way would paint onto what happens to lie in memory.
    QPixmap pixmap(QSize const& size, QIcon::Mode mode, QIcon::State state) override
    {
        return picture().pixmap(size, 1, mode, state);
    }

    QIconEngine* clone() const override { return new LatePicture(*this); }

private:
    QIcon const& picture()
    {
        if (picture_.isNull()) {
            picture_ = QIcon(file_);
        }
        return picture_;
    }

    QString file_;
    QIcon picture_;
};

QIcon late(QString const& file)
{
    return QIcon(new LatePicture(file)); // which owns the engine
}
}

QIcon Style::standardIcon(StandardPixmap standard, QStyleOption const* option, QWidget const* widget) const
{
    switch (standard) {
    case SP_ToolBarHorizontalExtensionButton:
        return late(QStringLiteral(":/icons/more.svg"));
    case SP_ToolBarVerticalExtensionButton:
        return late(QStringLiteral(":/icons/moreBelow.svg"));
    default:
        return QProxyStyle::standardIcon(standard, option, widget);
    }
}
}
