#pragma once

#include "StorageTest.h"

#include <QDir>

#include <SQLiteCpp/Database.h>

namespace tallymere::storage::testing {

/// Files of every version that people keep must open for good. Those in the data folder were saved by the releases.
class ReleaseTest : public StorageTest
{
protected:
    /// \param name of the release's file in the data folder
    /// \param digest that the release took of that file
    ReleaseTest(QString const& name, QString const& digest) : file(at(name)), digest_(digest)
    {
        EXPECT_TRUE(QFile::copy(QString(RELEASED_BUDGETS) + '/' + name, file));
    }

    static int versionOf(QString const& filePathName)
    {
        return SQLite::Database(filePathName.toStdString()).execAndGet("PRAGMA user_version").getInt();
    }

    /// Leaves a copy of \a database behind, as the release does when it crashes.
    /// \param filePathName of the file that it had open, empty for none
    void leaveBehind(QString const& database, QString const& filePathName) const
    {
        ASSERT_TRUE(QDir().mkpath(places.workingCopies));
        ASSERT_TRUE(QFile::copy(database, workingCopy));
        writeBytes(places.workingCopies + "/0123.origin",
                   QStringLiteral(R"({"content":"%1","file":"%2"})").arg(digest_, filePathName).toUtf8());
    }

    /// \return the first backup of the file
    QByteArray firstBackup() const
    {
        QDir const backups(places.backups);
        return bytesOf(backups.filePath(backups.entryList(QDir::Dirs | QDir::NoDotAndDotDot).value(0)) + "/1.budget");
    }

    QString const workingCopy = places.workingCopies + "/0123.budget";
    QString const file;

private:
    QString const digest_;
};
}
