#pragma once

#include <QCoreApplication>
#include <QTranslator>

#include <initializer_list>
#include <map>
#include <string>
#include <utility>

namespace tlm::testing {

/// Speaks another language while it lives.
class Translation : public QTranslator
{
public:
    /// \param texts translations by their English source, in every context
    explicit Translation(std::initializer_list<std::pair<std::string const, QString>> texts) : texts_(texts)
    {
        QCoreApplication::installTranslator(this);
    }
    ~Translation() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }

    QString translate(char const* /*context*/, char const* source, char const* /*comment*/, int /*n*/) const override
    {
        auto const found = texts_.find(source);
        return found == texts_.end() ? QString() : found->second;
    }

private:
    std::map<std::string, QString> texts_;
};
}
