// Forms on paper, read back from a PDF by a program that did not make it.
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>

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
