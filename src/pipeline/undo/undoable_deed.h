#pragma once

#include <QUndoCommand>

namespace fennick {

struct RecordedDeed;

// Something the user has done that can be taken back. It is put on the stack after it was done, stores what
// taking it back needs, and looks at list and files anew each time, for they may have changed. Owned by the
// stack of UndoHistory; main thread.
class UndoableDeed : public QUndoCommand {
public:
    // The stack calls it for a deed that is put on it as well, which is done already.
    void redo() final {
        if (isDone_) {
            doAgain();
        }
        isDone_ = true;
    }

    // Whether taking it back may be begun. It is not while a folder does not respond that it needs.
    virtual bool isPossible() const { return true; }

    // What is kept of it so that it can be taken back after a restart; none of most deeds.
    virtual const RecordedDeed *recorded() const { return nullptr; }

protected:
    virtual void doAgain() = 0;

private:
    bool isDone_ = false;
};

} // namespace fennick
