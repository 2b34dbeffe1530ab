#include "host/demo/StoreFiles.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>

namespace folvane::demo {
namespace {
using namespace Qt::Literals::StringLiterals;

constexpr int kLineLength = 32;

QStringList Paragraph(const Letter& letter) {
  QString text = u"　　为做好有关工作，现将"_s + letter.title + u"相关事项告知如下：请各有关单位高度重视，"_s +
                 u"明确责任，认真组织落实，并按规定时限报送办理情况。"_s;
  QStringList lines;
  for (; text.size() > kLineLength; text.remove(0, kLineLength)) lines << text.left(kLineLength);
  return lines << text;
}

QStringList Lines(const Letter& letter) {
  QStringList lines{letter.author, letter.docNo, QString(), letter.title, QString()};
  lines << Paragraph(letter) << QString() << letter.author << DayText(letter.written);
  return lines;
}

QByteArray Utf16Hex(const QString& text) {
  QByteArray hex;
  for (const QChar unit : text) hex += QByteArray::number(unit.unicode(), 16).rightJustified(4, '0');
  return hex;
}

QByteArray PageContent(const QStringList& lines) {
  QByteArray content = "BT /F1 14 Tf 20 TL 72 760 Td\n";
  for (const QString& line : lines) content += "<" + Utf16Hex(line) + "> Tj T*\n";
  return content + "ET";
}

}  // namespace

QByteArray TextFile(const Letter& letter) {
  return QByteArray("\xEF\xBB\xBF") + Lines(letter).join(u"\r\n"_s).toUtf8() + "\r\n";
}

// PDF 1.4 with a predefined CMap and a CID font that is not embedded: ISO 32000-1, 9.7.5.2 and 9.7.4.3.
QByteArray PdfFile(const Letter& letter) {
  const QByteArray content = PageContent(Lines(letter));
  const QByteArrayList objects{
      "<</Type/Catalog/Pages 2 0 R>>",
      "<</Type/Pages/Kids[3 0 R]/Count 1>>",
      "<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]/Contents 4 0 R/Resources<</Font<</F1 5 0 R>>>>>>",
      "<</Length " + QByteArray::number(content.size()) + ">>stream\n" + content + "\nendstream",
      "<</Type/Font/Subtype/Type0/BaseFont/STSong-Light/Encoding/UniGB-UCS2-H/DescendantFonts[6 0 R]>>",
      ("<</Type/Font/Subtype/CIDFontType0/BaseFont/STSong-Light/CIDSystemInfo"
       "<</Registry(Adobe)/Ordering(GB1)/Supplement 2>>/DW 1000/FontDescriptor 7 0 R>>"),
      ("<</Type/FontDescriptor/FontName/STSong-Light/Flags 6/FontBBox[-25 -254 1000 880]/ItalicAngle 0/Ascent 880"
       "/Descent -120/CapHeight 880/StemV 93>>")};
  QByteArray file = "%PDF-1.4\n";
  QByteArray table;
  for (qsizetype i = 0; i < objects.size(); ++i) {
    table += QByteArray::number(file.size()).rightJustified(10, '0') + " 00000 n \n";
    file += QByteArray::number(i + 1) + " 0 obj" + objects[i] + "endobj\n";
  }
  const QByteArray size = QByteArray::number(objects.size() + 1);
  return file + "xref\n0 " + size + "\n0000000000 65535 f \n" + table + "trailer<</Size " + size +
         "/Root 1 0 R>>\nstartxref\n" + QByteArray::number(file.size()) + "\n%%EOF\n";
}

QByteArray ScanFile(const Letter& letter) {
  constexpr int kWidth = 620, kHeight = 877, kMargin = 80;
  const QColor ink(70, 70, 70), red(190, 30, 30);
  QImage page(kWidth, kHeight, QImage::Format_RGB32);
  page.fill(QColor(252, 250, 244));
  QPainter painter(&page);
  painter.fillRect(kMargin + 70, 70, kWidth - 2 * kMargin - 140, 34, red);
  painter.fillRect(kMargin, 150, kWidth - 2 * kMargin, 3, red);
  // A bar for each line of the document, as long as the line is.
  int top = 200;
  for (const QString& line : Lines(letter)) {
    const int length = qMin(kLineLength, int(line.size())) * (kWidth - 2 * kMargin) / kLineLength;
    painter.fillRect(kMargin, top, length, 9, ink);
    top += 26;
  }
  painter.setPen(QPen(red, 4));
  painter.drawEllipse(QPoint(kWidth - 170, top + 10), 56, 56);
  painter.end();
  QByteArray file;
  QBuffer buffer(&file);
  buffer.open(QIODevice::WriteOnly);
  page.save(&buffer, "PNG");
  return file;
}

}  // namespace folvane::demo
