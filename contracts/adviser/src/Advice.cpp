#include "Advice.h"

#include "MonthlyPlan.h"

#include <tlm/foundation/PresentationText.h>

#include <QCoreApplication>
#include <QLocale>

#include <cmath>

namespace tlm::adviser {

namespace {

/// Writes the paragraphs on one plan.
class Advice
{
    Q_DECLARE_TR_FUNCTIONS(tlm::adviser::Advice)

public:
    explicit Advice(MonthlyPlan const& plan) : plan_(plan) {}

    bool isNothingPlanned() const;
    QString onNothing() const;
    QString onNoWages() const;
    QString onNoWagesButOwed() const;
    QString onBalance() const;
    QString onBills() const;
    QString onNontracks() const;
    QString onDebts() const;
    QString onGoals() const;

private:
    QString amount(long long stored) const;
    static QString percent(double share);
    QString percentOf(long long stored) const { return percent(plan_.shareOf(stored)); }

    MonthlyPlan const& plan_;
};

/// Advice needs no fractions of a cent. Towards zero can't leave 64 bits.
long long cutOff(long long const& amount, unsigned char const& storedDigits, unsigned char keptDigits)
{
    auto unit = 1LL;
    for (auto digit = keptDigits; digit < storedDigits; ++digit) {
        unit *= 10;
    }
    return amount - amount % unit;
}

QString Advice::amount(long long stored) const
{
    auto const money = fiscora::Money::fromAmount(plan_.currency(), stored);
    return foundation::presentationText(money.round(cutOff, fiscora::minorUnitDigits(plan_.currency())),
                                        foundation::LocaleAware(), foundation::WithCurrency());
}

QString Advice::percent(double share)
{
    auto const inPercent = std::round(100.0 * share);
    auto const text = [](double number) {
        return tr("%1%2", "a number and the percent sign").arg(QLocale().toString(number, 'f', 0), QLocale().percent());
    };
    if (inPercent > 999.0) {
        return tr("more than %1").arg(text(999.0));
    }
    if (share > 0.0 && inPercent < 1.0) {
        return tr("less than %1").arg(text(1.0));
    }
    return text(inPercent);
}

bool Advice::isNothingPlanned() const
{
    return plan_.wages() == 0 && plan_.goals() == 0 && plan_.bills() == 0 && plan_.debts() == 0 &&
           plan_.nontracks() == 0 && plan_.stillOwed() == 0;
}

QString Advice::onNothing() const
{
    return tr("Nothing is planned yet. Begin with your wages, then add the bills that you know of.");
}

QString Advice::onNoWages() const
{
    if (plan_.unplanned() >= 0) {
        return tr("No wages are planned. Plan what comes in, so that the budget can be judged.");
    }
    return tr("No wages are planned, yet %1 a month go out. Plan what comes in, so that the budget can be judged.")
        .arg(amount(-plan_.unplanned()));
}

QString Advice::onNoWagesButOwed() const
{
    return plan_.stillOwed() > 0 ? tr("Debts of %1 are still owed.").arg(amount(plan_.stillOwed())) : QString();
}

QString Advice::onBalance() const
{
    auto const unplanned = plan_.unplanned();
    if (unplanned < 0) {
        return tr("The plan takes %1 of wages: %2 a month more than the %3 that come in. Lower a bill, a nontrack or "
                  "a goal until it fits.")
            .arg(percent(plan_.plannedShare()), amount(-unplanned), amount(plan_.wages()));
    }
    if (unplanned == 0) {
        return tr("All of your wages, %1 a month, have a task.").arg(amount(plan_.wages()));
    }
    return tr("The plan takes %1 of wages. Of %2 a month, %3 are left without a task.")
        .arg(percent(plan_.plannedShare()), amount(plan_.wages()), amount(unplanned));
}

QString Advice::onBills() const
{
    if (plan_.bills() <= 0) {
        return tr("No bills are planned. Add those that you know of, so that none comes as a surprise.");
    }
    if (plan_.spendingShare() <= 0.5) {
        return tr("Bills take %1 of wages.").arg(percentOf(plan_.bills()));
    }
    return tr("Bills take %1 of wages. Together with debts and nontracks it is %2; the closer to half, the more room "
              "there is for goals and surprises.")
        .arg(percentOf(plan_.bills()), percent(plan_.spendingShare()));
}

QString Advice::onNontracks() const
{
    if (plan_.nontracks() <= 0) {
        return {};
    }
    auto share = tr("Nontracks take %1 of wages.").arg(percentOf(plan_.nontracks()));
    if (plan_.shareOf(plan_.nontracks()) <= 0.2) {
        return share;
    }
    return tr("%1 They are mostly the easiest place to save.").arg(share);
}

QString Advice::onDebts() const
{
    if (plan_.debts() <= 0 && plan_.stillOwed() <= 0) {
        return tr("No debts are planned, so no wages go to lenders.");
    }
    auto burden = tr("Debt payments take %1 of wages, and the %2 still owed come to %3 of a year's wages.")
                      .arg(percentOf(plan_.debts()), amount(plan_.stillOwed()), percent(plan_.yearsOwed()));
    if (plan_.shareOf(plan_.debts()) <= 0.1) {
        return burden;
    }
    return tr("%1 Pay off the debt with the highest interest first.").arg(burden);
}

QString Advice::onGoals() const
{
    if (plan_.goals() <= 0) {
        return tr("No goals are planned. Even %1 of wages, %2 a month, builds a reserve.")
            .arg(percent(0.05), amount(plan_.wages() / 20));
    }
    auto const share = percentOf(plan_.goals());
    if (plan_.coveredGoalsShare() < plan_.shareOf(plan_.goals())) {
        return tr("Goals ask for %1 of wages, but the rest of the plan leaves only %2 for them.")
            .arg(share, percent(plan_.coveredGoalsShare()));
    }
    auto const missing = plan_.wages() / 5 - plan_.goals();
    if (missing <= 0) {
        return tr("Goals put aside %1 of wages, a fifth or more: well done.").arg(share);
    }
    return tr("Goals put aside %1 of wages. Another %2 a month would make it a fifth.").arg(share, amount(missing));
}
}

QList<QString> adviceOn(MonthlyPlan const& plan)
{
    Advice const advice(plan);
    QList<QString> paragraphs;
    if (advice.isNothingPlanned()) {
        paragraphs = {advice.onNothing()};
    } else if (plan.wages() <= 0) {
        paragraphs = {advice.onNoWages(), advice.onNoWagesButOwed()};
    } else {
        paragraphs = {advice.onBalance(), advice.onBills(), advice.onDebts(), advice.onNontracks(), advice.onGoals()};
    }
    paragraphs.removeAll(QString());
    return paragraphs;
}
}
