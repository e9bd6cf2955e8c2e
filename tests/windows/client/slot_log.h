#pragma once

#include <set>

#include "client/component.h"

namespace tovera::client {

/// The slots of one interface that a test has reached; what it left out is a fault of the test.
class SlotLog {
  public:
    explicit SlotLog(IDispatch* object) : object_(object) { object_->AddRef(); }
    SlotLog(const SlotLog&) = delete;
    SlotLog& operator=(const SlotLog&) = delete;
    ~SlotLog() {
        expectAllReached();
        object_->Release();
    }

    /// Notes the slot, "Name", "get Name" or "put Name", and expects that the call went well.
    void reached(const std::string& slot, HRESULT status) {
        EXPECT_EQ(status, S_OK) << slot;
        reached_.insert(slot);
    }

  private:
    void expectAllReached() const;

    IDispatch* object_;
    std::set<std::string> reached_;
};

}  // namespace tovera::client
