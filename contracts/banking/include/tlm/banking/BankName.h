#pragma once

#include <QDebug>
#include <QString>

#include <compare>
#include <utility>

namespace tlm::banking {

/// The name by which a bank is known. A default one is empty: no bank has been chosen.
class BankName
{
public:
    BankName() = default;
    explicit BankName(QString institution) noexcept : institution_(std::move(institution)) {}

    QString const& institution() const noexcept { return institution_; }
    bool isEmpty() const noexcept { return institution_.isEmpty(); }

    friend bool operator==(BankName const&, BankName const&) = default;
    friend std::strong_ordering operator<=>(BankName const&, BankName const&) = default;

private:
    QString institution_;
};

QDebug operator<<(QDebug debug, BankName const& name);
}
