#include "internal/TextListModel.h"

#include "support/ComboBoxes.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QSignalSpy>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using ::testing::ElementsAre;
using tlm::desktop_ui::internal::appendTexts;
using tlm::desktop_ui::internal::TextListModel;
using tlm::testing::itemTexts;

namespace {

QStringList const texts{"", "one", "two"};

/// What a person's program hears of a combo box: the index, and how many items there are by then.
std::vector<std::pair<int, int>> heardWhile(QComboBox& box, std::function<void()> const& fill)
{
    std::vector<std::pair<int, int>> heard;
    QObject context;
    QObject::connect(&box, &QComboBox::currentIndexChanged, &context,
                     [&](int index) { heard.emplace_back(index, box.count()); });
    fill();
    return heard;
}
}

TEST(TextListModelTest, KeepsTheRulesOfModels)
{
    TextListModel model;
    QAbstractItemModelTester const tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);

    model.append(texts);
    model.append({"three", "four"});
    model.insertRows(1, 2, {});
    model.setData(model.index(1), "between", Qt::EditRole);
    model.removeRows(0, 1, {});

    ASSERT_EQ(model.rowCount(), 6);
    EXPECT_EQ(model.index(0).data(), "between");
    EXPECT_EQ(model.index(5).data(), "four");
}

TEST(TextListModelTest, RefusesRowsThatItHasNot)
{
    TextListModel model;
    model.append(texts);

    EXPECT_FALSE(model.removeRows(2, 2, {}));
    EXPECT_FALSE(model.removeRows(0, 0, {}));
    EXPECT_FALSE(model.removeRows(-1, 1, {}));
    EXPECT_FALSE(model.insertRows(4, 1, {}));
    EXPECT_FALSE(model.insertRows(0, 0, {}));
    EXPECT_FALSE(model.insertRows(0, 1, model.index(0)));
    EXPECT_FALSE(model.setData({}, "x", Qt::EditRole));
    EXPECT_FALSE(model.setData(model.index(0), "red", Qt::ForegroundRole));

    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.rowCount(model.index(0)), 0);
}

TEST(TextListModelTest, SharesAListUntilItChanges)
{
    TextListModel shared;
    TextListModel changed;
    shared.append(texts);
    changed.append(texts);
    auto const* const memory = texts.at(1).constData();

    changed.setData(changed.index(1), "other", Qt::EditRole);

    EXPECT_EQ(shared.index(1).data().toString().constData(), memory);
    EXPECT_EQ(shared.index(1).data(), "one");
    EXPECT_EQ(changed.index(1).data(), "other");
    EXPECT_EQ(texts.at(1), "one");
}

TEST(AppendTextsTest, TellsWhatAddingEachItemTells)
{
    QComboBox plain;
    QComboBox light;

    auto const heardOfPlain = heardWhile(plain, [&] {
        for (auto const& text : texts) {
            plain.addItem(text);
        }
        plain.clear();
        plain.addItem("last");
    });
    auto const heardOfLight = heardWhile(light, [&] {
        appendTexts(light, texts);
        light.clear();
        appendTexts(light, {"last"});
    });

    EXPECT_THAT(heardOfLight, ElementsAre(std::pair(0, 1), std::pair(-1, 0), std::pair(0, 1)));
    EXPECT_EQ(heardOfLight, heardOfPlain);
}

TEST(AppendTextsTest, LaterTextsComeBelowAndLeaveTheSelection)
{
    QComboBox box;
    appendTexts(box, texts);
    box.setCurrentIndex(2);

    auto const heard = heardWhile(box, [&] { appendTexts(box, {"three"}); });

    EXPECT_THAT(itemTexts(box), ElementsAre("", "one", "two", "three"));
    EXPECT_EQ(box.currentText(), "two");
    EXPECT_TRUE(heard.empty());
}

TEST(AppendTextsTest, ManyTextsLeaveTheItemsThatABoxHas)
{
    QComboBox box;
    QStringList const few{"1", "2", "3", "4", "5", "6", "7", "8"};
    appendTexts(box, few);

    appendTexts(box, few + few);

    EXPECT_EQ(itemTexts(box), few + few + few);
}

TEST(AppendTextsTest, NoTextsAddNothing)
{
    QComboBox box;

    auto const heard = heardWhile(box, [&] { appendTexts(box, {}); });

    EXPECT_EQ(box.count(), 0);
    EXPECT_TRUE(heard.empty());
}

TEST(AppendTextsTest, TheBoxStaysAComboBoxLikeAnyOther)
{
    QComboBox box;
    appendTexts(box, texts);

    box.addItem("three");
    box.insertItem(1, "zero");
    box.setItemText(2, "eins");
    box.removeItem(3);

    EXPECT_THAT(itemTexts(box), ElementsAre("", "zero", "eins", "three"));
    EXPECT_EQ(box.findText("three"), 3);
}
