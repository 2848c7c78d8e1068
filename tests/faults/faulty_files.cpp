#include "faults/faulty_files.h"

#include <signal.h>
#include <sqlite3.h>
#include <unistd.h>

#include <new>
#include <string>

#include "faults/power_cut.h"

namespace merlu::test {
namespace {

struct Armed {
  bool on = false, met = false;
  FileFault fault{};
  int calls = 0;
};

// The engine calls its file layer without a context pointer, so the state is global.
Armed armed;
long changes = 0, kill_before = 0;
sqlite3_vfs* real_layer = nullptr;
sqlite3_vfs layer;

struct File {
  sqlite3_file base;
  const char* path;  // the engine keeps it as long as the file is open; null for a file without a name
  sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

File* Of(sqlite3_file* file) {
  return reinterpret_cast<File*>(file);
}

std::string PathOf(sqlite3_file* file) {
  const char* path = Of(file)->path;
  return path == nullptr ? "" : path;
}

// SQLITE_OK when the call may pass.
int Meet(FileAct act) {
  if (act != FileAct::kRead && ++changes == kill_before) {
    CutPower();
    ::kill(::getpid(), SIGKILL);
  }
  if (!armed.on || act != armed.fault.act) return SQLITE_OK;
  ++armed.calls;
  const bool fails = armed.fault.lasting ? armed.calls >= armed.fault.nth : armed.calls == armed.fault.nth;
  if (!fails) return SQLITE_OK;
  armed.met = true;
  return armed.fault.code;
}

int Close(sqlite3_file* file) {
  sqlite3_file* real = Of(file)->real();
  return real->pMethods == nullptr ? SQLITE_OK : real->pMethods->xClose(real);
}

int Read(sqlite3_file* file, void* to, int count, sqlite3_int64 at) {
  if (const int code = Meet(FileAct::kRead); code != SQLITE_OK) return code;
  sqlite3_file* real = Of(file)->real();
  return real->pMethods->xRead(real, to, count, at);
}

int Write(sqlite3_file* file, const void* from, int count, sqlite3_int64 at) {
  if (const int code = Meet(FileAct::kWrite); code != SQLITE_OK) return code;
  sqlite3_file* real = Of(file)->real();
  WillWrite(PathOf(file), real, from, count, at);
  return real->pMethods->xWrite(real, from, count, at);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
  if (const int code = Meet(FileAct::kTruncate); code != SQLITE_OK) return code;
  sqlite3_file* real = Of(file)->real();
  WillTruncate(PathOf(file), real, size);
  return real->pMethods->xTruncate(real, size);
}

int Sync(sqlite3_file* file, int flags) {
  if (const int code = Meet(FileAct::kSync); code != SQLITE_OK) return code;
  sqlite3_file* real = Of(file)->real();
  const int code = real->pMethods->xSync(real, flags);
  if (code == SQLITE_OK) HasSynced(PathOf(file));
  return code;
}

int Size(sqlite3_file* file, sqlite3_int64* size) {
  sqlite3_file* real = Of(file)->real();
  return real->pMethods->xFileSize(real, size);
}

int Lock(sqlite3_file* file, int level) {
  if (const int code = Meet(FileAct::kLock); code != SQLITE_OK) return code;
  sqlite3_file* real = Of(file)->real();
  return real->pMethods->xLock(real, level);
}

int Unlock(sqlite3_file* file, int level) {
  sqlite3_file* real = Of(file)->real();
  return real->pMethods->xUnlock(real, level);
}

int CheckReserved(sqlite3_file* file, int* is) {
  sqlite3_file* real = Of(file)->real();
  return real->pMethods->xCheckReservedLock(real, is);
}

int Control(sqlite3_file* file, int what, void* argument) {
  sqlite3_file* real = Of(file)->real();
  return real->pMethods->xFileControl(real, what, argument);
}

int SectorSize(sqlite3_file* file) {
  sqlite3_file* real = Of(file)->real();
  return real->pMethods->xSectorSize(real);
}

int Characteristics(sqlite3_file* file) {
  sqlite3_file* real = Of(file)->real();
  return real->pMethods->xDeviceCharacteristics(real);
}

constexpr sqlite3_io_methods kMethods = {1,    Close,  Read,          Write,   Truncate,   Sync,           Size,
                                         Lock, Unlock, CheckReserved, Control, SectorSize, Characteristics};

int Open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* out_flags) {
  file->pMethods = nullptr;
  if (const int code = Meet(FileAct::kOpen); code != SQLITE_OK) return code;
  WillOpen(name, (flags & SQLITE_OPEN_CREATE) != 0);
  Of(file)->path = name;
  const int code = real_layer->xOpen(real_layer, name, Of(file)->real(), flags, out_flags);
  if (Of(file)->real()->pMethods != nullptr) file->pMethods = &kMethods;
  return code;
}

int Delete(sqlite3_vfs*, const char* name, int sync) {
  if (const int code = Meet(FileAct::kDelete); code != SQLITE_OK) return code;
  WillDelete(name);
  const int code = real_layer->xDelete(real_layer, name, sync);
  if (code == SQLITE_OK) HasDeleted(name, sync != 0);
  return code;
}

int Access(sqlite3_vfs*, const char* name, int flags, int* is) {
  return real_layer->xAccess(real_layer, name, flags, is);
}

int FullName(sqlite3_vfs*, const char* name, int size, char* out) {
  return real_layer->xFullPathname(real_layer, name, size, out);
}

}  // namespace

const char* FileActName(FileAct act) {
  switch (act) {
    case FileAct::kOpen: return "open";
    case FileAct::kRead: return "read";
    case FileAct::kWrite: return "write";
    case FileAct::kSync: return "sync";
    case FileAct::kTruncate: return "truncate";
    case FileAct::kDelete: return "delete";
    case FileAct::kLock: return "lock";
  }
  return "";
}

FaultyFiles::FaultyFiles() {
  real_layer = sqlite3_vfs_find(nullptr);
  layer = *real_layer;
  layer.iVersion = 1;
  layer.szOsFile = static_cast<int>(sizeof(File)) + real_layer->szOsFile;
  layer.pNext = nullptr;
  layer.zName = "faulty";
  layer.xOpen = Open;
  layer.xDelete = Delete;
  layer.xAccess = Access;
  layer.xFullPathname = FullName;
  sqlite3_vfs_register(&layer, 1);
}

FaultyFiles::~FaultyFiles() {
  LiftFault();
  sqlite3_vfs_unregister(&layer);
}

void ArmFault(const FileFault& fault) {
  armed = {true, false, fault, 0};
}

bool LiftFault() {
  armed.on = false;
  return armed.met;
}

void KillBefore(long nth) {
  changes = 0;
  kill_before = nth;
}

long ChangesSoFar() {
  return changes;
}

}  // namespace merlu::test
