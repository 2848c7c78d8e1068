// The windows on an inventory with long texts in every column: they are drawn in a time that grows as the texts do.
#include "driver.h"
#include "long_inventory.h"

namespace merlu::test {
namespace {

std::vector<Piece> ShowWindows(int bytes) {
  TemporaryFolder folder;
  std::vector<Piece> pieces;
  Driver driver(MakeLongInventory(folder, bytes));
  const auto time = [&](const char* what, const std::function<void()>& act) {
    const double began = ProcessorSeconds();
    act();
    driver.Settle();
    QWidget* top = QApplication::activeModalWidget();
    (top == nullptr ? driver.app->window() : top)->grab();
    pieces.push_back({what, ProcessorSeconds() - began});
  };
  time("start", [&] { driver.Start(); });
  Session& s = driver.app->session();
  const auto select = [&](const char* what, const char* end) {
    const std::string key = KeyWithEnd(s, end);
    time(what, [&] { driver.Select(key); });
  };
  const auto in_dialog = [&](const char* opens, const char* closes) {
    const double began = ProcessorSeconds();
    driver.OnNextModal([&](QWidget* dialog) {
      const QSize room = driver.app->window()->size();
      EXPECT_LE(dialog->width(), room.width()) << opens;
      EXPECT_LE(dialog->height(), room.height()) << opens;
      dialog->grab();
      driver.Click(closes);
    });
    driver.Command(opens);
    EXPECT_TRUE(driver.AllModalsCame());
    pieces.push_back({opens, ProcessorSeconds() - began});
  };
  time("operator", [&] { driver.Select(s.tree.nodes.front().key); });
  time("edit of the operator", [&] { driver.Click("cmdEdit"); });
  time("its save", [&] { driver.Click("cmdSaveEdits"); });
  time("its end", [&] { driver.Click("cmdCANCEL"); });
  select("month", " 12017");
  time("findings", [&] { driver.Command("mnuRFindings"); });
  time("completeness", [&] { driver.Command("mnuRCompleteness"); });
  select("flare", "FLA1");
  time("twelve months", [&] { driver.Command("mnuRStrip"); });
  time("edit", [&] { driver.Click("cmdEdit"); });
  time("save", [&] { driver.Click("cmdSaveEdits"); });
  time("end of the edit", [&] { driver.Click("cmdCANCEL"); });
  select("structure", "10001 1");
  time("edit of the structure", [&] { driver.Click("cmdEdit"); });
  time("keys in its comments", [&] { QTest::keyClicks(driver.Widget("txtSTRUCTURE_Comments"), "abc"); });
  time("save of the structure", [&] { driver.Click("cmdSaveEdits"); });
  time("end of its edit", [&] { driver.Click("cmdCANCEL"); });
  time("another size", [&] { driver.app->window()->resize(1300, 800); });
  select("flare again", "FLA1");
  in_dialog("mnuNGrid", "cmdCANCEL");
  in_dialog("mnuRHandIn", "cmdClose");
  in_dialog("mnuRHistory", "cmdClose");
  in_dialog("mnuRFind", "cmdCANCEL");
  time("descriptions", [&] { driver.Command("mnuSetEditMode"); });
  select("description of the structure", "10001 1");
  select("description of the flare", "FLA1");
  return pieces;
}

TEST(WindowsOfLongTexts, are_drawn_in_a_time_that_grows_as_the_texts_do) {
  ExpectLinear(ShowWindows);
}

}  // namespace
}  // namespace merlu::test
