#include <engine/SampleHousehold.h>
#include <program/SampleFile.h>
#include <storage/Document.h>

#include <QDir>
#include <QFileInfo>

namespace tallymere::program {

QString sampleFile(storage::Places const& places, QString const& folder, QDate const& today)
{
    QDir().mkpath(folder);
    auto path = QDir(folder).filePath(QStringLiteral("Sample household %1.budget").arg(today.toString(Qt::ISODate)));
    if (!QFileInfo::exists(path)) {
        auto const sample = engine::sampleHousehold(today);
        storage::Document::create(places, sample.content, sample.postings)->saveAs(path);
    }
    return path;
}
}
