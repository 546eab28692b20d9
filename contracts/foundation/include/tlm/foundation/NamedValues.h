#pragma once

#include <tlm/foundation/Error.h>

#include <QCoreApplication>
#include <QDebug>
#include <QString>

#include <algorithm>
#include <array>
#include <cstddef>

namespace tlm::foundation {

/// A value of an enumeration with its English name, empty for a value that has no text.
template <typename Value>
struct NamedValue
{
    Value value;
    char const* name;
};

/// The texts of an enumeration's values, to and fro.
template <typename Value, std::size_t Count>
class NamedValues
{
    Q_DECLARE_TR_FUNCTIONS(tlm::foundation)

public:
    /// \param context where translators find the names, which are marked by `QT_TRANSLATE_NOOP`
    /// \param names each value once, the names all different
    constexpr NamedValues(char const* context, std::array<NamedValue<Value>, Count> const& names) noexcept
        : context_(context), names_(names)
    {}

    /// \return the translated name, empty for a value without one
    QString text(Value value) const
    {
        auto const* const found = std::ranges::find(names_, value, &NamedValue<Value>::value);
        return found == names_.end() ? QString() : translated(found->name);
    }

    /// Reads back what text() gives in the language that is in use now.
    /// \throws Error when \a text is none of the names
    Value read(QString const& text) const
    {
        auto const* const found =
            std::ranges::find(names_, text, [this](auto const& named) { return translated(named.name); });
        if (found == names_.end()) {
            throw Error(tr("\"%1\" is none of the choices here. Pick one from the list.").arg(text));
        }
        return found->value;
    }

    /// Writes \a type and the untranslated name, or the number of a value without one.
    QDebug log(QDebug debug, char const* type, Value value) const
    {
        QDebugStateSaver const saver(debug);
        auto const* const found = std::ranges::find(names_, value, &NamedValue<Value>::value);
        debug.nospace() << type << '(';
        if (found == names_.end() || *found->name == '\0') {
            debug << static_cast<int>(value);
        } else {
            debug << found->name;
        }
        debug << ')';
        return debug;
    }

private:
    // A translator answers an empty source text with its file's header.
    QString translated(char const* name) const
    {
        return *name == '\0' ? QString() : QCoreApplication::translate(context_, name);
    }

    char const* context_;
    std::array<NamedValue<Value>, Count> names_;
};
}
