#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace tallymere::engine {
class Household;
}

namespace tallymere::presenter {

class Session;

/// Why a change was refused, in words for the person; none where it was made.
using Refusal = std::optional<QString>;

/// Lets \a change act on the household of \a session. What fails without words for the person is logged, and told with some.
///
/// An answer is emitted after it, outside of any `try`: a view that fails over the answer must not be told that its change
/// failed.
Refusal refusalOf(Session& session, std::function<void(engine::Household&)> const& change);

/// The refused step of an entry that a view tells in several steps, for those that follow.
///
/// A view goes on with the next step of an entry whatever the answer to the one before was: under a refused name, which is
/// that of another thing, or to mark what was never changed. So what follows is refused with the same sentence.
/// \tparam Entry finds the entry again, such as the name that was refused
/// \tparam Original what the entry is called in the books
template <typename Entry, typename Original = Entry>
class RefusedStep
{
public:
    struct Refused
    {
        Entry entry;
        Original original;
        QString sentence;
    };

    /// Keeps how a step went, in the place of the one before.
    void keep(Entry const& entry, Original const& original, Refusal const& refusal)
    {
        refused_ = refusal ? std::optional(Refused{entry, original, *refusal}) : std::nullopt;
    }
    void forget() { refused_.reset(); }

    /// \return the refused step that one of \a entry follows, none when there is none
    std::optional<Refused> before(Entry const& entry) const
    {
        return refused_ && refused_->entry == entry ? refused_ : std::nullopt;
    }

private:
    std::optional<Refused> refused_;
};
}
