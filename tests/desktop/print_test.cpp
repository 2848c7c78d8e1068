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

TEST_F(Paper, holds_the_whole_form_on_one_page) {
  PrintWidget(*driver.app->window(), printer);
  const QString text = Read("pdftotext", {"-layout", file, "-"});
  for (const char* shown : {"Blue Water", "Edit Data", "Operator: 12345"})
    EXPECT_TRUE(text.contains(shown)) << shown << "\n" << text.toStdString();
  const QString facts = Read("pdfinfo", {file});
  EXPECT_TRUE(facts.contains(QRegularExpression("Pages: +1\n"))) << facts.toStdString();
  EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
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
