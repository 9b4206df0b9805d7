// The system calls that the fault injector counts: everything that touches files and folders.
#pragma once

#include <sys/syscall.h>

#include <cstdint>

namespace tradebill {

/// Where a call's arguments name what it works on.
enum class ObjectPlace : std::uint8_t {
    Descriptor,  ///< argument 0 is a descriptor
    Path,        ///< argument 0 is a path
    PathAt,      ///< arguments 0 and 1 are a folder's descriptor and a path below it
    TwoPaths,    ///< arguments 0 and 1 are paths, of before and after
    TwoPathsAt,  ///< arguments 0 to 3 are two pairs as in PathAt
    Mapping,     ///< argument 4 is a descriptor; -1 is no file, and isn't counted
};

/// What a call does to the disk.
enum class CallEffect : std::uint8_t {
    None,
    Changes,
    ByFlags,  ///< opens, and changes the disk if argument 1 or 2 says that a file is made or cut
};

/// How a call that moves bytes is made to move half of them.
enum class Halving : std::uint8_t { No, Count, Vector };

struct TracedCall {
    long number;
    const char* name;
    ObjectPlace place;
    CallEffect effect = CallEffect::None;
    Halving halving = Halving::No;
};

// clang-format off
inline constexpr TracedCall kTracedCalls[] = {
    {SYS_open,            "open",            ObjectPlace::Path,       CallEffect::ByFlags},
    {SYS_openat,          "openat",          ObjectPlace::PathAt,     CallEffect::ByFlags},
    {SYS_creat,           "creat",           ObjectPlace::Path,       CallEffect::Changes},
    {SYS_read,            "read",            ObjectPlace::Descriptor, CallEffect::None,    Halving::Count},
    {SYS_pread64,         "pread64",         ObjectPlace::Descriptor, CallEffect::None,    Halving::Count},
    {SYS_readv,           "readv",           ObjectPlace::Descriptor, CallEffect::None,    Halving::Vector},
    {SYS_preadv,          "preadv",          ObjectPlace::Descriptor},
    {SYS_write,           "write",           ObjectPlace::Descriptor, CallEffect::Changes, Halving::Count},
    {SYS_pwrite64,        "pwrite64",        ObjectPlace::Descriptor, CallEffect::Changes, Halving::Count},
    {SYS_writev,          "writev",          ObjectPlace::Descriptor, CallEffect::Changes, Halving::Vector},
    {SYS_pwritev,         "pwritev",         ObjectPlace::Descriptor, CallEffect::Changes},
    {SYS_copy_file_range, "copy_file_range", ObjectPlace::Descriptor, CallEffect::Changes},
    {SYS_sendfile,        "sendfile",        ObjectPlace::Descriptor, CallEffect::Changes},
    {SYS_close,           "close",           ObjectPlace::Descriptor},
    {SYS_lseek,           "lseek",           ObjectPlace::Descriptor},
    {SYS_rename,          "rename",          ObjectPlace::TwoPaths,   CallEffect::Changes},
    {SYS_renameat,        "renameat",        ObjectPlace::TwoPathsAt, CallEffect::Changes},
    {SYS_renameat2,       "renameat2",       ObjectPlace::TwoPathsAt, CallEffect::Changes},
    {SYS_link,            "link",            ObjectPlace::TwoPaths,   CallEffect::Changes},
    {SYS_linkat,          "linkat",          ObjectPlace::TwoPathsAt, CallEffect::Changes},
    {SYS_unlink,          "unlink",          ObjectPlace::Path,       CallEffect::Changes},
    {SYS_unlinkat,        "unlinkat",        ObjectPlace::PathAt,     CallEffect::Changes},
    {SYS_rmdir,           "rmdir",           ObjectPlace::Path,       CallEffect::Changes},
    {SYS_mkdir,           "mkdir",           ObjectPlace::Path,       CallEffect::Changes},
    {SYS_mkdirat,         "mkdirat",         ObjectPlace::PathAt,     CallEffect::Changes},
    {SYS_stat,            "stat",            ObjectPlace::Path},
    {SYS_lstat,           "lstat",           ObjectPlace::Path},
    {SYS_fstat,           "fstat",           ObjectPlace::Descriptor},
    {SYS_newfstatat,      "newfstatat",      ObjectPlace::PathAt},
    {SYS_statx,           "statx",           ObjectPlace::PathAt},
    {SYS_statfs,          "statfs",          ObjectPlace::Path},
    {SYS_fstatfs,         "fstatfs",         ObjectPlace::Descriptor},
    {SYS_access,          "access",          ObjectPlace::Path},
    {SYS_faccessat,       "faccessat",       ObjectPlace::PathAt},
    {SYS_faccessat2,      "faccessat2",      ObjectPlace::PathAt},
    {SYS_readlink,        "readlink",        ObjectPlace::Path},
    {SYS_readlinkat,      "readlinkat",      ObjectPlace::PathAt},
    {SYS_getdents64,      "getdents64",      ObjectPlace::Descriptor},
    {SYS_mmap,            "mmap",            ObjectPlace::Mapping},
    {SYS_flock,           "flock",           ObjectPlace::Descriptor},
    {SYS_fcntl,           "fcntl",           ObjectPlace::Descriptor},
    {SYS_dup,             "dup",             ObjectPlace::Descriptor},
    {SYS_dup2,            "dup2",            ObjectPlace::Descriptor},
    {SYS_dup3,            "dup3",            ObjectPlace::Descriptor},
    {SYS_truncate,        "truncate",        ObjectPlace::Path,       CallEffect::Changes},
    {SYS_ftruncate,       "ftruncate",       ObjectPlace::Descriptor, CallEffect::Changes},
    {SYS_fallocate,       "fallocate",       ObjectPlace::Descriptor, CallEffect::Changes},
    {SYS_fsync,           "fsync",           ObjectPlace::Descriptor},
    {SYS_fdatasync,       "fdatasync",       ObjectPlace::Descriptor},
    {SYS_chmod,           "chmod",           ObjectPlace::Path,       CallEffect::Changes},
    {SYS_fchmod,          "fchmod",          ObjectPlace::Descriptor, CallEffect::Changes},
    {SYS_fchmodat,        "fchmodat",        ObjectPlace::PathAt,     CallEffect::Changes},
    {SYS_chown,           "chown",           ObjectPlace::Path,       CallEffect::Changes},
    {SYS_fchown,          "fchown",          ObjectPlace::Descriptor, CallEffect::Changes},
    {SYS_fchownat,        "fchownat",        ObjectPlace::PathAt,     CallEffect::Changes},
    {SYS_symlink,         "symlink",         ObjectPlace::TwoPaths,   CallEffect::Changes},
    {SYS_utimensat,       "utimensat",       ObjectPlace::PathAt,     CallEffect::Changes},
};
// clang-format on

}  // namespace tradebill
