#include "bench/Drawing.h"

#include <QFile>
#include <QTextStream>
#include <algorithm>
#include <cmath>
#include <vector>

namespace folvane::bench {

namespace {

using namespace Qt::Literals::StringLiterals;

constexpr int kWidth = 720, kHeight = 440, kLeft = 70, kRight = 210, kTop = 40, kBottom = 60;
constexpr double kLeastRows = 1e3, kMostRows = 1e6, kLeastTime = 1, kMostTime = 1e4;
constexpr int kRounds = 3;

struct Line {
  QString name, words, colour;
};

double X(double rows) {
  return kLeft + (kWidth - kLeft - kRight) * std::log10(rows / kLeastRows) / std::log10(kMostRows / kLeastRows);
}

double Y(double milliseconds) {
  const double height = kHeight - kTop - kBottom;
  return kTop + height - height * std::log10(milliseconds / kLeastTime) / std::log10(kMostTime / kLeastTime);
}

QString Point(double x, double y) { return u"%1,%2"_s.arg(x, 0, 'f', 1).arg(y, 0, 'f', 1); }

void PutText(QTextStream& out, double x, double y, const QString& text, const QString& anchor,
             const QString& colour = u"#444"_s) {
  out << u"<text x=\"%1\" y=\"%2\" text-anchor=\"%3\" fill=\"%4\">%5</text>\n"_s.arg(x, 0, 'f', 1)
             .arg(y, 0, 'f', 1)
             .arg(anchor, colour, text);
}

void PutAxes(QTextStream& out) {
  const auto rule = [&](const QString& from, const QString& to) {
    out << u"<path d=\"M%1 L%2\" stroke=\"#ddd\"/>\n"_s.arg(from, to);
  };
  for (double rows = kLeastRows; rows <= kMostRows * 1.01; rows *= 10) {
    rule(Point(X(rows), Y(kLeastTime)), Point(X(rows), Y(kMostTime)));
    PutText(out, X(rows), Y(kLeastTime) + 18, u"%L1"_s.arg(qint64(rows + 0.5)), u"middle"_s);
  }
  for (double time = kLeastTime; time <= kMostTime * 1.01; time *= 10) {
    rule(Point(X(kLeastRows), Y(time)), Point(X(kMostRows), Y(time)));
    PutText(out, kLeft - 8, Y(time) + 4, u"%L1"_s.arg(qint64(time + 0.5)), u"end"_s);
  }
  PutText(out, (X(kLeastRows) + X(kMostRows)) / 2, kHeight - 14, u"rows of the table"_s, u"middle"_s);
  PutText(out, kLeft - 8, kTop - 14, u"ms"_s, u"end"_s);
}

}  // namespace

int DrawGrowth(const QString& path, const std::function<Sample(const QString&, qint64)>& measure) {
  const std::vector<Line> lines{
      {u"browser-choose"_s, u"first page in the window"_s, u"#c0392b"_s},
      {u"step-raw"_s, u"bare loop, all columns"_s, u"#2c3e50"_s},
      {u"read-sqltablemodel"_s, u"QSqlTableModel"_s, u"#2980b9"_s},
  };
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) qFatal("%s cannot be written", qPrintable(path));
  QTextStream out(&file);
  out << u"<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 %1 %2\" font-family=\"sans-serif\" "
         "font-size=\"13\">\n<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n"_s.arg(kWidth)
             .arg(kHeight);
  PutAxes(out);
  for (const Line& line : lines) {
    QStringList points;
    double last = 0;
    for (const qint64 rows : {1'000, 10'000, 100'000, 1'000'000}) {
      double best = 1e300;
      for (int round = 0; round < kRounds; ++round) best = std::min(best, measure(line.name, rows).milliseconds);
      last = Y(std::max(best, kLeastTime));
      points << Point(X(double(rows)), last);
      out << u"<circle cx=\"%1\" cy=\"%2\" r=\"3.5\" fill=\"%3\"><title>%L4 rows: %5 ms</title></circle>\n"_s
                 .arg(X(double(rows)), 0, 'f', 1)
                 .arg(last, 0, 'f', 1)
                 .arg(line.colour)
                 .arg(rows)
                 .arg(best, 0, 'f', 1);
    }
    out << u"<polyline points=\"%1\" fill=\"none\" stroke=\"%2\" stroke-width=\"2\"/>\n"_s.arg(points.join(u' '),
                                                                                               line.colour);
    PutText(out, X(kMostRows) + 10, last + 4, line.words, u"start"_s, line.colour);
  }
  out << "</svg>\n";
  return 0;
}

}  // namespace folvane::bench
