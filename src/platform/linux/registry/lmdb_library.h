#pragma once

#include <lmdb.h>

#include "platform/linux/libraries/shared_library.h"

namespace tovera {

/// The functions of LMDB that the store calls.
struct LmdbLibrary {
    template <class Function>
    using Bound = EntryPoint<Function>;

    SharedLibrary library{"liblmdb.so.0"};
    Bound<decltype(mdb_env_create)> env_create{library, "mdb_env_create"};
    Bound<decltype(mdb_env_open)> env_open{library, "mdb_env_open"};
    Bound<decltype(mdb_env_close)> env_close{library, "mdb_env_close"};
    Bound<decltype(mdb_env_sync)> env_sync{library, "mdb_env_sync"};
    Bound<decltype(mdb_env_copyfd2)> env_copyfd2{library, "mdb_env_copyfd2"};
    Bound<decltype(mdb_env_info)> env_info{library, "mdb_env_info"};
    Bound<decltype(mdb_env_set_mapsize)> env_set_mapsize{library, "mdb_env_set_mapsize"};
    Bound<decltype(mdb_env_set_maxreaders)> env_set_maxreaders{library, "mdb_env_set_maxreaders"};
    Bound<decltype(mdb_reader_check)> reader_check{library, "mdb_reader_check"};
    Bound<decltype(mdb_txn_begin)> txn_begin{library, "mdb_txn_begin"};
    Bound<decltype(mdb_txn_commit)> txn_commit{library, "mdb_txn_commit"};
    Bound<decltype(mdb_txn_abort)> txn_abort{library, "mdb_txn_abort"};
    Bound<decltype(mdb_txn_reset)> txn_reset{library, "mdb_txn_reset"};
    Bound<decltype(mdb_txn_renew)> txn_renew{library, "mdb_txn_renew"};
    Bound<decltype(mdb_dbi_open)> dbi_open{library, "mdb_dbi_open"};
    Bound<decltype(mdb_get)> get{library, "mdb_get"};
    Bound<decltype(mdb_put)> put{library, "mdb_put"};
    Bound<decltype(mdb_del)> del{library, "mdb_del"};
    Bound<decltype(mdb_cursor_open)> cursor_open{library, "mdb_cursor_open"};
    Bound<decltype(mdb_cursor_close)> cursor_close{library, "mdb_cursor_close"};
    Bound<decltype(mdb_cursor_get)> cursor_get{library, "mdb_cursor_get"};
};

inline LmdbLibrary& lmdb() {
    static LmdbLibrary functions;
    return functions;
}

}  // namespace tovera
