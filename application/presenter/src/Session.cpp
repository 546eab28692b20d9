#include <presenter/Session.h>

#include <QDebug>
#include <QFileInfo>
#include <QLocale>

namespace tallymere::presenter {

namespace {

/// \return where \a filePathName leads to; what it says where nothing is there, since a file that was open may have gone
QString placeOf(QString const& filePathName)
{
    QFileInfo const file(filePathName);
    auto const canonical = file.canonicalFilePath();
    return canonical.isEmpty() ? file.absoluteFilePath() : canonical;
}

bool isSameFile(QString const& left, QString const& right)
{
    return !right.isEmpty() && placeOf(left) == placeOf(right);
}
}

Session::Session(storage::Places places) : places_(std::move(places)) {}

Session::~Session() = default;

bool Session::isDirty() const
{
    try {
        return document_->isDirty();
    } catch (std::exception const& failure) {
        qWarning() << "Failed to compare the budget with its file:" << failure.what();
        return true;
    }
}

void Session::change(std::function<void(engine::Household&)> const& change)
{
    change(*household_);
    emit changed();
}

void Session::beginEmpty()
{
    take(storage::Document::create(places_, engine::emptyContent(QLocale())));
}

void Session::open(QString const& filePathName)
{
    if (document_ && isSameFile(filePathName, document_->filePathName())) {
        readAgain();
        return;
    }
    take(storage::Document::open(places_, filePathName));
}

void Session::readAgain()
{
    std::unique_ptr<engine::Household> household;
    document_->reload([&](engine::BudgetContent const& content) {
        household = std::make_unique<engine::Household>(content, *document_);
    });
    household_ = std::move(household);
    emit replaced();
}

void Session::recover(storage::Orphan const& orphan)
{
    std::unique_ptr<engine::Household> household;
    auto document = storage::Document::recover(places_, orphan, [&household](storage::Document& recovered) {
        household = std::make_unique<engine::Household>(recovered.content(), recovered);
    });
    take(std::move(document), std::move(household));
}

void Session::save()
{
    document_->save();
    emit saved();
}

void Session::saveAs(QString const& filePathName)
{
    document_->saveAs(filePathName);
    emit saved();
}

void Session::take(std::unique_ptr<storage::Document> document)
{
    // The household may refuse what it reads; only then does anything that is open give way.
    auto household = std::make_unique<engine::Household>(document->content(), *document);
    take(std::move(document), std::move(household));
}

void Session::take(std::unique_ptr<storage::Document> document, std::unique_ptr<engine::Household> household)
{
    household_ = std::move(household);
    document_ = std::move(document);
    emit replaced();
}
}
