#include "TransactionsFixture.h"

#include <random>

using tlm::testing::child;
using tlm::testing::expectMessage;

/// Acts at random in a long list whose forms come when they are needed, and in one that has all of them.
class TransactionsReplayTest : public tlm::testing::TransactionsFixture,
                               public ::testing::WithParamInterface<unsigned int>
{
protected:
    static constexpr auto entries = 450;
    static constexpr auto otherEntries = 60;
    static constexpr auto acts = 120;

    /// \param isWhole whether all forms exist from the start on
    /// \return what was seen and told after each act
    QStringList replay(bool isWhole)
    {
        make();
        expectMessage(QtWarningMsg, "^Failure saving");
        random.seed(GetParam());
        nextNumber = 60'000;
        view->addAccount(account(4300, "Gifts", {}));
        view->add(cash, postings(entries));
        view->add(bank, others());
        if (isWhole) {
            touchAll();
        }
        view->hideLedger(bank);
        answer = [this](auto const& which) { reply(which); };
        showOnScreen();
        view->showLedger(cash);
        forms = rows().size();
        QStringList seen;
        for (auto act = 0; act < acts; ++act) {
            turnEventLoop();
            sent.clear();
            auto const name = actOnce();
            seen.append(name + ": " + look());
            turnEventLoop();
            seen.append("then " + look());
        }
        return seen;
    }

    qsizetype forms = 0; // that there were at the start

private:
    std::vector<Transaction> others() const
    {
        std::vector<Transaction> all;
        for (auto each = 0; each < otherEntries; ++each) {
            all.push_back(posting(5'000 + each, QDate(2031, 1, 1).addDays(each % 7), Statuses(each % 3)));
        }
        return all;
    }

    /// An entry that was answered has a form for good.
    void touchAll()
    {
        for (auto each = 1; each <= entries; ++each) {
            view->saveSucceeded(number(each), {});
        }
        for (auto each = 0; each < otherEntries; ++each) {
            view->saveSucceeded(number(5'000 + each), {});
        }
    }

    void reply(std::optional<Number> const& which)
    {
        if (pick(3) == 0) {
            view->saveFailed(which, "Closed.");
        } else {
            view->saveSucceeded(which, which ? which : number(nextNumber++));
        }
    }

    int pick(int below) { return static_cast<int>(random() % static_cast<unsigned int>(below)); }

    Row* pickRow()
    {
        auto const seen = rowsOnScreen();
        return seen.empty() ? nullptr : seen[static_cast<std::size_t>(pick(static_cast<int>(seen.size())))];
    }

    /// \return what was done
    QString actOnce()
    {
        switch (pick(16)) {
        case 0:
        case 1:
        case 2:
            bar().setValue(pick(bar().maximum() + 1));
            return "scroll";
        case 3:
            bar().setValue(bar().value() + pick(900) - 450);
            return "scroll a little";
        case 4:
        case 5:
            return onRow("describe", [this](Row& row) { describe(row, QStringLiteral("Rolls %1").arg(pick(100))); });
        case 6:
            return onRow("check", [](Row& row) { child<QCheckBox>(row, "reconciledChckbx").click(); });
        case 7:
            return onRow("remove", [](Row& row) { markForRemoval(row); });
        case 8:
            view->save();
            return "save";
        case 9:
            pick(2) == 0 ? view->hideLedger(pickLedger()) : view->showLedger(pickLedger());
            return "ledger";
        case 10:
            view->setSelectionMode(static_cast<std::uint8_t>(pick(3)));
            return "mode";
        case 11:
            return onRow("select", [](Row& row) { child<QCheckBox>(row, "selectedChckbx").click(); });
        case 12:
            return onRow("focus",
                         [](Row& row) { child<QLineEdit>(row, "descriptionLndt").setFocus(Qt::TabFocusReason); });
        case 13:
            return press(pick(2) == 0 ? Qt::Key_Tab : Qt::Key_Backtab, pick(30));
        case 14:
            view->add(pickLedger(), Transaction());
            return "new";
        default:
            view->setReadOnly(pick(4) == 0);
            return "read-only";
        }
    }

    AccountCode const& pickLedger() { return pick(2) == 0 ? cash : bank; }

    QString onRow(QString const& what, std::function<void(Row&)> const& act)
    {
        if (auto* const row = pickRow()) {
            act(*row);
        }
        return what;
    }

    QString press(Qt::Key key, int times) const
    {
        for (auto each = 0; each < times && QApplication::focusWidget() != nullptr; ++each) {
            QTest::keyClick(QApplication::focusWidget(), key);
        }
        return "press";
    }

    /// \return what is on screen, and what was told
    QString look() const
    {
        auto text = QStringLiteral("at %1 of %2").arg(bar().value()).arg(bar().maximum());
        for (auto const* const row : rowsOnScreen()) {
            text += "\n  " + describeRow(*row);
        }
        return text + "\n  " + sent.join(", ") + (view->anyDirty() ? " dirty" : "") +
               (view->hasNewEntry() ? " new" : "");
    }

    QString describeRow(Row const& row) const
    {
        auto const place = placeOf(row);
        QStringList parts{QString::number(place.y()), QString::number(place.height()),
                          row.number() ? presentationText(*row.number()) : "new", row.description(), error(row)};
        parts.append(row.isDirty() ? "dirty" : "clean");
        parts.append(row.isReadOnly() ? "read-only" : "");
        parts.append(row.isSelected() ? "selected" : "");
        parts.append(row.isRemoved() ? "removed" : "");
        parts.append(row.isAncestorOf(QApplication::focusWidget()) ? QApplication::focusWidget()->objectName() : "");
        parts.append(QString::number(int(row.status())));
        return parts.join(' ');
    }

    std::mt19937 random;
};

INSTANTIATE_TEST_SUITE_P(Seeds, TransactionsReplayTest, ::testing::Range(1U, 7U));

TEST_P(TransactionsReplayTest, NobodySeesWhichFormsExist)
{
    auto const whole = replay(true);
    EXPECT_EQ(forms, entries + otherEntries);
    auto const lazy = replay(false);
    EXPECT_LT(forms, 100);

    ASSERT_EQ(whole.size(), lazy.size());
    for (qsizetype step = 0; step < whole.size(); ++step) {
        ASSERT_EQ(lazy.at(step).toStdString(), whole.at(step).toStdString()) << "at step " << step;
    }
}
