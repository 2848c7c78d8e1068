// Forms on paper, read back from a PDF by a program that did not make it.
#include <QLabel>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QScrollArea>

#include <set>

#include "base/fault.h"
#include "desktop/print_form.h"
#include "driver.h"

namespace merlu::test {
namespace {

QString Read(const QString& program, const QStringList& words) {
  QProcess reader;
  reader.start(program, words);
  EXPECT_TRUE(reader.waitForFinished());
  return QString::fromUtf8(reader.readAllStandardOutput());
}

class Paper : public testing::Test {
 protected:
  Paper() {
    driver.FillNewOperator();
    driver.Start();
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
  }
  Driver driver;
  const QString file = QString::fromStdString(driver.folder().path("page.pdf"));
  QPrinter printer{QPrinter::HighResolution};
};

TEST_F(Paper, takes_one_page_by_the_width_of_the_form) {
  PrintWidget(*driver.app->window(), printer);
  const QString facts = Read("pdfinfo", {file});
  EXPECT_TRUE(facts.contains(QRegularExpression("Pages: +1\n"))) << facts.toStdString();
  EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
}

TEST_F(Paper, shows_what_the_window_shows) {
  QWidget& window = *driver.app->window();
  PrintWidget(window, printer);
  const QString page = QString::fromStdString(driver.folder().path("page"));
  Read("pdftoppm", {"-r", "200", "-png", "-singlefile", file, page});
  QImage paper(page + ".png");
  ASSERT_FALSE(paper.isNull());
  // the page without its margins, in the size of the window
  const QRect inside = printer.pageLayout().paintRectPixels(200);
  const double scale = std::min(1.0 * inside.width() / window.width(), 1.0 * inside.height() / window.height());
  const QSize size(static_cast<int>(window.width() * scale), static_cast<int>(window.height() * scale));
  const QPoint corner(inside.left() + (inside.width() - size.width()) / 2, inside.top());
  const QSize small = window.size() / 4;
  const QImage shown = window.grab().toImage().scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  const QImage printed = paper.copy(QRect(corner, size)).scaled(small, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  double difference = 0;
  for (int y = 0; y < small.height(); ++y)
    for (int x = 0; x < small.width(); ++x)
      difference += std::abs(qGray(shown.pixel(x, y)) - qGray(printed.pixel(x, y)));
  EXPECT_LT(difference / (small.width() * small.height()), 4);
}

TEST_F(Paper, takes_as_many_pages_as_the_whole_form_needs) {
  MainWindow& window = *driver.app->window();
  window.resize(620, 400);
  driver.Settle();
  auto* area = new QScrollArea(window.centralWidget());
  auto* tall = new QWidget;
  tall->setFixedSize(300, 1500);
  auto* last = new QLabel("the last line of all", tall);
  last->move(10, 1470);
  area->setWidget(tall);
  area->setGeometry(10, 10, 400, 200);
  area->show();
  PrintWidget(window, printer);
  const QString facts = Read("pdfinfo", {file});
  const auto pages = QRegularExpression("Pages: +([0-9]+)\n").match(facts).captured(1).toInt();
  EXPECT_GT(pages, 2);
  // the part that is scrolled out of sight is printed: its page is not blank
  const QString page = QString::fromStdString(driver.folder().path("page"));
  Read("pdftoppm",
       {"-r", "50", "-png", "-f", QString::number(pages), "-l", QString::number(pages), "-singlefile", file, page});
  const QImage paper(page + ".png");
  ASSERT_FALSE(paper.isNull());
  std::set<QRgb> colours;
  for (int y = 0; y < paper.height(); ++y)
    for (int x = 0; x < paper.width(); ++x) colours.insert(paper.pixel(x, y));
  EXPECT_GT(colours.size(), 10u);
}

TEST_F(Paper, stands_upright_for_a_form_that_does) {
  QWidget tall;
  tall.resize(300, 600);
  PrintWidget(tall, printer);
  EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Portrait);
}

TEST_F(Paper, that_cannot_be_written_is_a_fault) {
  printer.setOutputFileName("/proc/no/page.pdf");
  EXPECT_THROW(PrintWidget(*driver.app->window(), printer), Fault);
}

}  // namespace
}  // namespace merlu::test
