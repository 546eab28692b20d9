#pragma once

#include "Budgets.h"

#include <storage/Document.h>

#include <QFile>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace tallymere::storage::testing {

QByteArray bytesOf(QString const& filePathName);
void writeBytes(QString const& filePathName, QByteArray const& bytes);

/// \return the sentence by which \a attempt is refused, empty when it isn't. It must be one line.
QString refusalOf(std::function<void()> const& attempt);

/// Gives each test a folder of its own, with documents' companions in it.
class StorageTest : public ::testing::Test
{
protected:
    QString at(QString const& name) const { return folder.path() + '/' + name; }

    /// Saves \a content, whose turnovers count \a counted, at \a filePathName and closes it.
    void save(QString const& filePathName, engine::BudgetContent const& content = household(),
              std::vector<engine::Posting> const& counted = {}) const;

    /// \return what stands in the file, read as any program would read it, without a lock
    engine::BudgetContent contentOf(QString const& filePathName) const;

    /// \return the files of working copies that are left
    QStringList workingFiles() const;

    QTemporaryDir folder;
    Places const places{folder.filePath("data/working-copies"), folder.filePath("data/backups")};
};

/// Acts with the rights of a person for its lifetime, where the tests run as root, whom no permission binds.
class OrdinaryUser
{
public:
    /// \param home what that person owns
    explicit OrdinaryUser(QString const& home);
    ~OrdinaryUser();
    OrdinaryUser(OrdinaryUser const&) = delete;
    OrdinaryUser& operator=(OrdinaryUser const&) = delete;

private:
    bool isRoot_;
};
}
