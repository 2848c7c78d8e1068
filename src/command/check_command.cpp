#include <nlohmann/json.hpp>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

#include "base/fault.h"
#include "command/check.h"
#include "command/commands.h"
#include "command/finding_lines.h"

namespace merlu {
namespace {

struct Judged {
  std::optional<CheckedFile> file;
  std::string fault;  // why there is none
};

Judged JudgeFile(const std::string& path, const CheckScope& scope, int jobs) {
  try {
    return {CheckInventory(path, scope, jobs), ""};
  } catch (const Fault& fault) {
    return {std::nullopt, fault.description};
  } catch (const std::exception& error) {
    return {std::nullopt, error.what()};
  }
}

// Hands the files out to the processors and their results back in the order of the files.
class Row {
 public:
  Row(const std::vector<std::string>& paths, const CheckScope& scope)
      : paths_(paths), scope_(scope), done_(paths.size()) {}

  template <typename Each>
  void Run(int jobs, Each&& each) {
    const int workers = std::min(jobs, static_cast<int>(paths_.size()));
    std::vector<std::thread> threads;
    for (int worker = 0; worker < workers; ++worker) threads.emplace_back([this] { Work(); });
    for (std::size_t file = 0; file < paths_.size(); ++file) {
      Judged judged;
      {
        std::unique_lock<std::mutex> lock(mutex_);
        come_.wait(lock, [&] { return done_[file].has_value(); });
        judged = std::move(*done_[file]);
        done_[file].reset();
        written_ = file + 1;
      }
      come_.notify_all();
      each(paths_[file], judged);
    }
    for (std::thread& thread : threads) thread.join();
  }

 private:
  // No processor runs ahead of the one that is waited for by more than that: their results are kept meanwhile.
  static constexpr std::size_t kAhead = 64;

  void Work() {
    while (true) {
      std::size_t file = 0;
      {
        std::unique_lock<std::mutex> lock(mutex_);
        come_.wait(lock, [&] { return next_ >= paths_.size() || next_ < written_ + kAhead; });
        if (next_ >= paths_.size()) return;
        file = next_++;
      }
      Judged judged = JudgeFile(paths_[file], scope_, 1);
      {
        const std::lock_guard<std::mutex> lock(mutex_);
        done_[file] = std::move(judged);
      }
      come_.notify_all();
    }
  }

  const std::vector<std::string>& paths_;
  const CheckScope& scope_;
  std::vector<std::optional<Judged>> done_;
  std::size_t next_ = 0, written_ = 0;
  std::mutex mutex_;
  std::condition_variable come_;
};

// A progress line "12 of 400 files", erased before anything else is written there.
class FilesDone {
 public:
  FilesDone(Console& console, std::size_t files) : console_(console), files_(files) {}
  void Show() {
    if (!console_.progress || files_ < 2) return;
    console_.err << "\r" << ++done_ << " of " << files_ << " files" << std::flush;
  }
  void Clear() {
    if (console_.progress && done_ > 0) console_.err << "\r\x1B[K" << std::flush;
  }

 private:
  Console& console_;
  std::size_t files_, done_ = 0;
};

}  // namespace

Status CheckFiles(const Request& request, Console& console) {
  const CheckScope scope{request.Number("--month"), !request.Has("--month"), !request.Has("--descriptions")};
  const int all = static_cast<int>(std::max(1U, std::thread::hardware_concurrency()));
  const int jobs = request.Has("--jobs") ? request.Number("--jobs") : all;
  const std::string format = request.Text("--format");
  Status status = Status::kWell;
  WriteFindingsHead(console, format);
  FilesDone files(console, request.words.size());
  const auto tell = [&](const std::string& path, const Judged& judged) {
    if (!judged.file) {
      Complain(console, "check", path, judged.fault);
      status = Worse(status, Status::kFile);
      return;
    }
    const CheckedFile& file = *judged.file;
    WriteFindings(console, format, path, file);
    if (file.lacks_month) Complain(console, "check", path, "It has no month " + request.Text("--month") + ".");
    for (const std::string& why : file.not_judged) Complain(console, "check", path, why);
    if (file.lacks_month || file.open > 0 || file.stale > 0) status = Worse(status, Status::kSomething);
    if (!file.not_judged.empty()) status = Worse(status, Status::kFile);
  };
  const auto each = [&](const std::string& path, const Judged& judged) {
    files.Clear();
    tell(path, judged);
    files.Show();
  };
  // a few files are shared out record by record, many as wholes
  if (static_cast<int>(request.words.size()) >= jobs)
    Row(request.words, scope).Run(jobs, each);
  else
    for (const std::string& path : request.words) each(path, JudgeFile(path, scope, jobs));
  files.Clear();
  return status;
}

}  // namespace merlu
