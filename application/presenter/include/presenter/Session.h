#pragma once

#include <engine/Household.h>
#include <storage/Document.h>

#include <QObject>

#include <functional>
#include <memory>

namespace tallymere::presenter {

/// The budget that is open: its document, and the household that is kept in it.
///
/// There is none until the first has been begun, opened or recovered, and always one from then on. Nothing but these three
/// and places() may be asked before.
class Session : public QObject
{
    Q_OBJECT

public:
    explicit Session(storage::Places places);
    ~Session() override;

    storage::Places const& places() const { return places_; }
    storage::Document const& document() const { return *document_; }
    engine::Household const& household() const { return *household_; }

    /// Lets \a change act on the household.
    /// \throws std::exception what the household refuses it with; nothing has changed then
    void change(std::function<void(engine::Household&)> const& change);

    /// \return whether there is anything that closing would lose. A document that can't be compared counts as changed.
    bool isDirty() const;

    /// Each of these takes over the new budget only after it has been read whole; on failure the present one stays.
    /// \throws storage::DocumentError with a sentence for the person
    void beginEmpty();
    void open(QString const& filePathName);
    void recover(storage::Orphan const& orphan);

    /// \throws storage::DocumentError with a sentence for the person; nothing is lost then, and nothing counts as saved
    void save();
    void saveAs(QString const& filePathName);

signals:
    /// Another budget stands open, or the present one has been read again.
    void replaced();
    /// A change was accepted.
    void changed();
    void saved();

private:
    void readAgain();
    void take(std::unique_ptr<storage::Document> document);
    void take(std::unique_ptr<storage::Document> document, std::unique_ptr<engine::Household> household);

    storage::Places places_;
    std::unique_ptr<storage::Document> document_;
    std::unique_ptr<engine::Household> household_;
};
}
