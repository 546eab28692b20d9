#include <tlm/budgeting/EventFrequency.h>
#include <tlm/foundation/NamedValues.h>

namespace tlm::budgeting {

namespace {

constexpr foundation::NamedValues<EventFrequency, 22>
    names("tlm::budgeting",
          {{{EventFrequency::None, ""},
            {EventFrequency::Hourly, QT_TRANSLATE_NOOP("tlm::budgeting", "Hourly")},
            {EventFrequency::Daily, QT_TRANSLATE_NOOP("tlm::budgeting", "Daily")},
            {EventFrequency::Weekly, QT_TRANSLATE_NOOP("tlm::budgeting", "Weekly")},
            {EventFrequency::Fortnightly, QT_TRANSLATE_NOOP("tlm::budgeting", "Fortnightly")},
            {EventFrequency::TwiceMonthly, QT_TRANSLATE_NOOP("tlm::budgeting", "Twice a Month")},
            {EventFrequency::Monthly, QT_TRANSLATE_NOOP("tlm::budgeting", "Monthly")},
            {EventFrequency::EveryTwoMonths, QT_TRANSLATE_NOOP("tlm::budgeting", "Every Two Months")},
            {EventFrequency::Quarterly, QT_TRANSLATE_NOOP("tlm::budgeting", "Quarterly")},
            {EventFrequency::EveryFourMonths, QT_TRANSLATE_NOOP("tlm::budgeting", "Every Four Months")},
            {EventFrequency::EveryFiveMonths, QT_TRANSLATE_NOOP("tlm::budgeting", "Every Five Months")},
            {EventFrequency::HalfYearly, QT_TRANSLATE_NOOP("tlm::budgeting", "Half-Yearly")},
            {EventFrequency::EveryEightMonths, QT_TRANSLATE_NOOP("tlm::budgeting", "Every Eight Months")},
            {EventFrequency::EveryNineMonths, QT_TRANSLATE_NOOP("tlm::budgeting", "Every Nine Months")},
            {EventFrequency::Yearly, QT_TRANSLATE_NOOP("tlm::budgeting", "Yearly")},
            {EventFrequency::EveryEighteenMonths, QT_TRANSLATE_NOOP("tlm::budgeting", "Every Eighteen Months")},
            {EventFrequency::EveryTwoYears, QT_TRANSLATE_NOOP("tlm::budgeting", "Every Two Years")},
            {EventFrequency::EveryThreeYears, QT_TRANSLATE_NOOP("tlm::budgeting", "Every Three Years")},
            {EventFrequency::EveryFourYears, QT_TRANSLATE_NOOP("tlm::budgeting", "Every Four Years")},
            {EventFrequency::EveryFiveYears, QT_TRANSLATE_NOOP("tlm::budgeting", "Every Five Years")},
            {EventFrequency::EveryTenYears, QT_TRANSLATE_NOOP("tlm::budgeting", "Every Ten Years")},
            {EventFrequency::EveryFourWeeks, QT_TRANSLATE_NOOP("tlm::budgeting", "Every Four Weeks")}}});
}

QString presentationText(EventFrequency const& frequency)
{
    return names.text(frequency);
}

EventFrequency toEventFrequency(QString const& text)
{
    return names.read(text);
}

QDebug operator<<(QDebug debug, EventFrequency frequency)
{
    return names.log(debug, "EventFrequency", frequency);
}
}
