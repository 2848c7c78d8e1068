// Settings that cannot be written: said once, nothing is lost, and the program goes on.
#include <sys/resource.h>
#include <unistd.h>

#include <QHeaderView>

#include <csignal>

#include "desktop/model_list.h"
#include "driver.h"

namespace merlu::test {
namespace {

constexpr uid_t kNobody = 65534;

// As long as it lives nobody can write into the folder: not even root, who is somebody else meanwhile.
class ReadOnlyPlace {
 public:
  ReadOnlyPlace(const std::string& settings, const std::string& others) : settings_(settings), root_(::geteuid() == 0) {
    fs::permissions(settings_, fs::perms(0555));
    if (!root_) return;
    for (const auto& entry : fs::directory_iterator(settings_)) fs::permissions(entry, fs::perms(0644));
    fs::permissions(others, fs::perms(0777));
    for (const auto& entry : fs::recursive_directory_iterator(others)) fs::permissions(entry, fs::perms(0666));
    EXPECT_EQ(::seteuid(kNobody), 0);
  }
  ~ReadOnlyPlace() {
    if (root_) {
      EXPECT_EQ(::seteuid(0), 0);
    }
    fs::permissions(settings_, fs::perms(0755));
  }
  ReadOnlyPlace(const ReadOnlyPlace&) = delete;
  ReadOnlyPlace& operator=(const ReadOnlyPlace&) = delete;

 private:
  std::string settings_;
  bool root_;
};

// As long as it lives no file can grow, as on a full disk.
class FullPlace {
 public:
  FullPlace() : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit none{0, before_.rlim_max};
    EXPECT_EQ(::setrlimit(RLIMIT_FSIZE, &none), 0);
  }
  ~FullPlace() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  FullPlace(const FullPlace&) = delete;
  FullPlace& operator=(const FullPlace&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int);
};

class UnwritableSettings : public testing::Test {
 protected:
  UnwritableSettings() {
    TestRun run;
    run.StartWith("FLA", "F1");
    run.s.db.Close();
    for (const char* name : {"inventory.mdb", "other.mdb"})
      fs::copy_file(run.folder.path("inventory.mdb"), folder_.path(name));
    driver_ = std::make_unique<Driver>(folder_.path("inventory.mdb"));
    file_ = driver_->folder().path("settings.ini");
  }
  void OnNextTold() {
    driver_->OnNextModal([this](QWidget* widget) {
      auto* box = qobject_cast<QMessageBox*>(widget);
      ASSERT_TRUE(box != nullptr);
      EXPECT_EQ(box->text().toStdString(),
                "The settings cannot be written to " + file_ + ". What is chosen now lasts until the program ends. 75");
      box->accept();
    });
  }
  // Everything that a user does and that is remembered. A box that nobody expects fails the test.
  void ChooseAll() {
    driver_->Command("mnuRFindings");
    auto* list = driver_->Find<ModelList>("lvwFND_List");
    const int wide = list->columnWidth(0) + 20;
    list->header()->resizeSection(0, wide);
    driver_->Settle();
    EXPECT_EQ(list->columnWidth(0), wide);
    driver_->Command("mnuRFindings");
    driver_->OnNextModal([this](QWidget* dialog) {
      driver_->Type("txtGOT_Text", "F1");
      QTest::keyClick(dialog, Qt::Key_Return);
    });
    driver_->Command("mnuRFind");
    EXPECT_EQ(driver_->app->session().current.EquipID, "F1");
    driver_->OnNextModal([this](QWidget* widget) {
      auto* line = widget->findChild<QLineEdit*>("fileNameEdit");
      ASSERT_TRUE(line != nullptr);
      line->setText(QString::fromStdString(folder_.path("other.mdb")));
      QTest::keyClick(line, Qt::Key_Return);
    });
    driver_->Command("mnuFileSelectDatabase");
    EXPECT_TRUE(driver_->AllModalsCame());
    EXPECT_EQ(driver_->app->session().path, folder_.path("other.mdb"));
    EXPECT_TRUE(driver_->app->session().db.IsOpen());
  }

  TemporaryFolder folder_;
  std::unique_ptr<Driver> driver_;
  std::string file_;
};

TEST_F(UnwritableSettings, of_others_are_told_once_and_all_goes_on) {
  const std::string before = FileBytes(file_);
  {
    const ReadOnlyPlace place(driver_->folder().path(), folder_.path());
    OnNextTold();
    driver_->Start();
    ChooseAll();
    // what was chosen holds in this run
    EXPECT_EQ(driver_->app->Setting("Options", "DBloc"), folder_.path("other.mdb"));
  }
  EXPECT_EQ(FileBytes(file_), before) << "what was there is whole";
}

TEST_F(UnwritableSettings, on_a_full_disk_are_told_once_and_written_when_there_is_room) {
  driver_->Start();
  const std::string before = FileBytes(file_);
  {
    const FullPlace place;
    OnNextTold();
    driver_->Command("mnuRFindings");
    EXPECT_TRUE(driver_->AllModalsCame());
    EXPECT_EQ(FileBytes(file_), before) << "what was there is whole";
    driver_->Command("mnuRFindings");
    driver_->Command("mnuRCompleteness");
  }
  ChooseAll();
  EXPECT_NE(FileBytes(file_).find("other.mdb"), std::string::npos);
  EXPECT_NE(FileBytes(file_).find("mnuRCompleteness=1"), std::string::npos) << FileBytes(file_);
}

}  // namespace
}  // namespace merlu::test
