#include "components/scanning/ScanWords.h"

#include <utility>
#include <vector>

namespace folvane::scanning {
namespace {
using namespace Qt::Literals::StringLiterals;
using WordPairs = std::vector<std::pair<QString, QString>>;

// The words that the drivers of SANE use.
const WordPairs kModes{{u"Color"_s, u"彩色"_s},
                       {u"24bit Color"_s, u"彩色"_s},
                       {u"24 bit Color"_s, u"彩色"_s},
                       {u"48bit Color"_s, u"彩色（48 位）"_s},
                       {u"Gray"_s, u"灰度"_s},
                       {u"Grayscale"_s, u"灰度"_s},
                       {u"True Gray"_s, u"灰度"_s},
                       {u"8-bit Grayscale"_s, u"灰度"_s},
                       {u"Lineart"_s, u"黑白"_s},
                       {u"Binary"_s, u"黑白"_s},
                       {u"Black & White"_s, u"黑白"_s},
                       {u"Monochrome"_s, u"黑白"_s},
                       {u"Halftone"_s, u"黑白（半色调）"_s},
                       {u"Gray[Error Diffusion]"_s, u"黑白（误差扩散）"_s},
                       {u"Color Lineart"_s, u"彩色线条"_s},
                       {u"Color Halftone"_s, u"彩色（半色调）"_s}};
const WordPairs kSources{{u"Flatbed"_s, u"平板"_s},
                         {u"Normal"_s, u"平板"_s},
                         {u"Automatic Document Feeder"_s, u"自动进纸器"_s},
                         {u"Document Feeder"_s, u"自动进纸器"_s},
                         {u"ADF"_s, u"自动进纸器"_s},
                         {u"ADF Front"_s, u"自动进纸器（正面）"_s},
                         {u"ADF Simplex"_s, u"自动进纸器（单面）"_s},
                         {u"ADF Back"_s, u"自动进纸器（背面）"_s},
                         {u"ADF Duplex"_s, u"自动进纸器（双面）"_s},
                         {u"Automatic Document Feeder(left aligned)"_s, u"自动进纸器（靠左）"_s},
                         {u"Automatic Document Feeder(centrally aligned)"_s, u"自动进纸器（居中）"_s},
                         {u"Transparency Adapter"_s, u"透射适配器"_s},
                         {u"Transparency Unit"_s, u"透射适配器"_s}};

QString Found(const WordPairs& words, const QString& word) {
  for (const auto& [driver, user] : words)
    if (driver.compare(word, Qt::CaseInsensitive) == 0) return user;
  return word;
}

}  // namespace

QString ModeInWords(const QString& mode) { return Found(kModes, mode); }
QString SourceInWords(const QString& source) { return Found(kSources, source); }

}  // namespace folvane::scanning
