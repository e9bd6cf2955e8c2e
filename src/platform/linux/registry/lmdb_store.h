#pragma once

#include <mutex>
#include <string>
#include <sys/types.h>

#include "frame/values.h"
#include "platform/linux/registry/store_transaction.h"

struct MDB_env;

namespace tovera {

/// A durable store of entries in a folder, shared by all processes of the user.
///
/// A transaction is whole or not there at all, and one that was reported as done outlives the process from
/// then on: its pages have gone to the system by then. They are not forced to the disk each time, which would
/// cost a hundred times as much; that happens when the store closes. A power cut can therefore undo the last
/// transactions or, where the disk has reordered them, damage the file. For that case the first change after
/// each start of the machine leaves a synced copy behind, to which the store goes back. A damaged file is
/// reported on standard error and kept under another name, and so is one with an entry that can't be read
/// before something is written over it.
class LmdbStore {
  public:
    /// Nothing is opened before the first transaction.
    explicit LmdbStore(std::string folder);
    LmdbStore(const LmdbStore&) = delete;
    LmdbStore& operator=(const LmdbStore&) = delete;
    ~LmdbStore();

    /// Runs work, a function of a `StoreTransaction&` that gives a status. The result is that status, or the
    /// one for what failed. Work that changes the store runs again from the start when the store had to grow,
    /// and leaves no trace when its status isn't 0.
    template <class Work>
    I4 read(Work&& work) {
        return run(Purpose::Read, WorkReference(work));
    }
    template <class Work>
    I4 write(Work&& work) {
        return run(Purpose::Write, WorkReference(work));
    }

    /// Inside of work that writes: leaves a copy of the file, before something that can't be read is written
    /// over.
    void keepDamaged();
    /// Tells, once a process, that what isn't there may have been lost with a file that was damaged before.
    void tellOfEarlierLoss();

  private:
    enum class Purpose { Read, Write };

    class WorkReference {
      public:
        template <class Work>
        explicit WorkReference(Work& work)
            : work_(&work), call_([](void* of, StoreTransaction& transaction) {
                  return (*static_cast<Work*>(of))(transaction);
              }) {}
        I4 operator()(StoreTransaction& transaction) const { return call_(work_, transaction); }

      private:
        void* work_;
        I4 (*call_)(void*, StoreTransaction&);
    };

    I4 run(Purpose purpose, WorkReference work);
    I4 runRead(WorkReference work);
    I4 runWrite(WorkReference work);
    void beginReading();
    bool recover(const StoreFailure& failure);
    I4 statusOf(const StoreFailure& failure, Purpose purpose) const;

    bool isOpen() const;
    void open();
    void openEnvironment();
    void checkFile();
    void close();
    void setAside();
    std::string nameForDamaged() const;
    bool takeRestored() const;
    void prepareForWriting();
    void makeCopy();
    bool isReplaced() const;
    bool isRoomGone() const;
    void growTo(std::size_t size);

    std::string file(const char* name) const { return folder_ + "/" + name; }

    std::string folder_;
    std::mutex mutex_;
    MDB_env* environment_ = nullptr;
    MDB_txn* reader_ = nullptr;
    bool readOnly_ = false;
    bool preparedForWriting_ = false;
    bool unsynced_ = false;
    ino_t inode_ = 0;
    unsigned generation_ = 0;
    bool isLossTold_ = false;
};

}  // namespace tovera
