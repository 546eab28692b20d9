#pragma once

#include <engine/Household.h>
#include <tlm/accounting/AccountNumber.h>

#include <QDate>
#include <QString>

#include <functional>
#include <map>
#include <vector>

namespace tallymere::engine {

/// The accounts out of which the sample's household pays.
struct SampleAccounts
{
    tlm::accounting::AccountNumber checking;
    tlm::accounting::AccountNumber savings;
    tlm::accounting::AccountNumber card;    ///< in dollars as the two above
    tlm::accounting::AccountNumber travels; ///< in euros
};

/// Tells the eighteen months that the sample's household has lived through.
class SamplePostings
{
public:
    /// \param household outlives this, and plans its items already
    SamplePostings(Household& household, SampleAccounts const& accounts, QDate const& today);

    /// \return the first day of the months that are told to \a today
    static QDate begin(QDate const& today) { return today.addMonths(-18); }

    /// Posts all that happened, day by day, up to the present one.
    void post();

private:
    using AccountNumber = tlm::accounting::AccountNumber;
    using Days = std::vector<QDate>;

    /// What a person spends on now and then, without planning it.
    struct Habit
    {
        QString name;
        unsigned int number; ///< of the account
        int everyDays;
        int least; ///< in dollars
        int most;
    };

    Days daysOf(PlannedItem const& item) const;
    Days every(int days, int months, QDate const& latest) const;
    void tell(PlannedItem const& item);
    void tellPurchases(PlannedItem const& item, QDate const& day);
    void tell(Habit const& habit);
    void tellInterest();
    void tellTransfers();
    void pay(PlannedItem const& item, QDate const& day, fiscora::Money const& amount, AccountNumber const& by,
             QString const& description);
    void plan(Posting const& posting);
    void moveRest(QDate const& day);
    int any(int least, int most);

    Household& household_;
    SampleAccounts accounts_;
    QDate today_;
    std::multimap<QDate, std::function<void()>> events_;
    unsigned int dice_ = 2'026; ///< the same throws for every sample
};
}
