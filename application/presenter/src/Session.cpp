#include <presenter/Session.h>
#include <QDebug>
#include <QFileInfo>
#include <QLocale>

namespace tallymere::presenter {

namespace {

bool isSameFile(QString const& left, QString const& right)
{
    auto const canonical = QFileInfo(left).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(right).canonicalFilePath();
}
} // namespace

Session::Session(storage::Places places) : places_(std::move(places))
{
    beginEmpty();
}

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

void Session::beginEmpty()
{
    take(storage::Document::create(places_, engine::emptyContent(QLocale())));
}

void Session::open(QString const& filePathName)
{
    if (isSameFile(filePathName, document_->filePathName())) {
        document_->reload();
        adopt(document_->content());
        return;
    }
    take(storage::Document::open(places_, filePathName));
}

void Session::recover(storage::Orphan const& orphan)
{
    take(storage::Document::recover(places_, orphan));
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
    auto content = document->content();
    document_ = std::move(document);
    adopt(std::move(content));
}

void Session::adopt(engine::BudgetContent content)
{
    household_.emplace(std::move(content), *document_);
    emit replaced();
}
} // namespace tallymere::presenter
