#include "RefusalTest.h"

#include <QDir>
#include <QDirIterator>

#include <SQLiteCpp/Database.h>
#include <unistd.h>

using tallymere::engine::BudgetContent;

namespace tallymere::storage::testing {

namespace {

constexpr uid_t nobody = 65534;
}

QByteArray bytesOf(QString const& filePathName)
{
    QFile file(filePathName);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << filePathName.toStdString();
    return file.readAll();
}

void writeBytes(QString const& filePathName, QByteArray const& bytes)
{
    QFile file(filePathName);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(bytes), bytes.size());
}

QString refusalOf(std::function<void()> const& attempt)
{
    try {
        attempt();
    } catch (DocumentError const& refusal) {
        EXPECT_FALSE(refusal.message().isEmpty());
        EXPECT_FALSE(refusal.message().contains('\n')) << refusal.what();
        return refusal.message();
    }
    return {};
}

void StorageTest::save(QString const& filePathName, BudgetContent const& content,
                       std::vector<engine::Posting> const& counted) const
{
    Document::create(places, content, counted)->saveAs(filePathName);
}

BudgetContent StorageTest::contentOf(QString const& filePathName) const
{
    QTemporaryDir elsewhere;
    auto const copy = elsewhere.filePath("copy.budget");
    EXPECT_TRUE(QFile::copy(filePathName, copy));
    Places const own{elsewhere.filePath("working-copies"), elsewhere.filePath("backups")};
    return Document::open(own, copy)->content();
}

QStringList StorageTest::workingFiles() const
{
    return QDir(places.workingCopies).entryList(QDir::Files | QDir::Hidden);
}

void run(QString const& filePathName, char const* sql)
{
    SQLite::Database(filePathName.toStdString(), SQLite::OPEN_READWRITE).exec(sql);
}

std::string RefusalTest::refused(QString const& filePathName) const
{
    auto const before = QFileInfo(filePathName).isFile() ? bytesOf(filePathName) : QByteArray();
    auto const sentence = refusalOf([&] { Document::open(places, filePathName); });
    EXPECT_EQ(QFileInfo(filePathName).isFile() ? bytesOf(filePathName) : QByteArray(), before);
    EXPECT_EQ(workingFiles(), QStringList());
    return sentence.toStdString();
}

std::string RefusalTest::refusedAfter(char const* sql, BudgetContent const& content,
                                      std::vector<engine::Posting> const& counted) const
{
    save(at("tampered.budget"), content, counted);
    run(at("tampered.budget"), sql);
    return refused(at("tampered.budget"));
}

OrdinaryUser::OrdinaryUser(QString const& home) : isRoot_(::geteuid() == 0)
{
    if (!isRoot_) {
        return;
    }
    QDirIterator below(home, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (below.hasNext()) {
        EXPECT_EQ(::lchown(QFile::encodeName(below.next()).constData(), nobody, nobody), 0);
    }
    EXPECT_EQ(::chown(QFile::encodeName(home).constData(), nobody, nobody), 0);
    EXPECT_EQ(::setegid(nobody), 0);
    EXPECT_EQ(::seteuid(nobody), 0);
}

OrdinaryUser::~OrdinaryUser()
{
    if (isRoot_) {
        EXPECT_EQ(::seteuid(0), 0);
        EXPECT_EQ(::setegid(0), 0);
    }
}
}
