#pragma once

#include "Chance.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QWidget>

class QLineEdit;

namespace tlm::desktop_ui {
class MainWindow;
}

namespace tallymere {

/// Clicks, types and presses keys at random on one view of the program, and opens that view again whenever it has gone.
///
/// Its events take the way through the window that a person's take: what lies in front gets them, and a question that is
/// open is answered first.
class Monkey
{
public:
    enum class Manner
    {
        Playful,
        Earnest ///< now and then fills in a whole form and saves it, where chance alone would hardly ever
    };

    /// \param action object name of the action that opens the view, empty for the dashboard
    /// \param words what it types
    Monkey(tlm::desktop_ui::MainWindow& window, QString action, Manner manner, QStringList words, unsigned int seed);

    /// Does one thing and lets the program come to rest.
    /// \throws std::runtime_error when the view doesn't open
    void act();

    /// \return what it did last, the latest at the end
    QStringList const& lastActs() const { return lastActs_; }

private:
    using Trick = void (Monkey::*)();
    struct WeightedTrick;

    void leaveWhatBlocks();
    void openView();
    bool isViewOpen() const;
    QString viewOnScreen() const;
    Trick anyTrick();
    static void settle();

    void clickSomewhere();
    void typeSomewhere();
    void pressKey();
    void chooseInBox();
    void tick();
    void step();
    void fillIn();
    void pushButton();
    void pickRow();
    void clickHeading();
    void scroll();
    void resize();
    void reopen();
    void saveFile();
    void rest();
    void playInPopup(QWidget& popup);
    void finishTypedDate();
    void answer(QWidget& question);

    QWidget& view() const;
    template <typename T>
    QList<T*> allVisible() const;
    template <typename T>
    T* anyVisible();
    QPoint anyPlaceIn(QWidget const& widget);
    void click(QWidget& widget, QPoint const& place, Qt::KeyboardModifiers modifiers = {});
    void approach(QWidget& widget);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void typeInto(QLineEdit& field, QString const& text);
    void enter(QString const& text);
    QString anyAmount();
    void tell(QString const& what);

    tlm::desktop_ui::MainWindow& window_;
    QString action_;
    Manner manner_;
    QStringList words_;
    Chance chance_;
    QTimer blocked_;
    QString view_;
    QStringList lastActs_;
};
}
