#include "components/scanning/Scanner.h"

#include <algorithm>
#include <cstring>
#include <sane/saneopts.h>

#include "components/scanning/PageReader.h"
#include "components/scanning/ScanErrors.h"

namespace folvane::scanning {
namespace {
using namespace Qt::Literals::StringLiterals;

// Of a scanner that takes any resolution these are offered.
constexpr int kUsualResolutions[] = {75, 100, 150, 200, 300, 400, 600, 1200};

// The library is asked once and stays until the program ends: some drivers do not stand to be loaded again.
void RequireSane() {
  static const SANE_Status status = sane_init(nullptr, nullptr);
  RequireGood(status);
}

QString Words(SANE_String_Const text) { return text ? QString::fromUtf8(text) : QString(); }

double FromWord(const SANE_Option_Descriptor& about, SANE_Word word) {
  return about.type == SANE_TYPE_FIXED ? SANE_UNFIX(word) : word;
}

SANE_Word ToWord(const SANE_Option_Descriptor& about, double number) {
  return about.type == SANE_TYPE_FIXED ? SANE_FIX(number) : SANE_Word(qRound(number));
}

SANE_Word Nearest(const SANE_Option_Descriptor& about, SANE_Word wanted) {
  if (about.constraint_type == SANE_CONSTRAINT_RANGE) {
    const SANE_Range& range = *about.constraint.range;
    const SANE_Word within = std::clamp(wanted, range.min, range.max);
    return range.quant > 0 ? range.min + (within - range.min) / range.quant * range.quant : within;
  }
  if (about.constraint_type == SANE_CONSTRAINT_WORD_LIST) {
    const SANE_Word* list = about.constraint.word_list;
    return *std::min_element(list + 1, list + 1 + list[0], [&](SANE_Word one, SANE_Word other) {
      return std::abs(double(one) - wanted) < std::abs(double(other) - wanted);
    });
  }
  return wanted;
}

QStringList WordList(const SANE_Option_Descriptor& about) {
  QStringList words;
  if (about.constraint_type == SANE_CONSTRAINT_STRING_LIST)
    for (const SANE_String_Const* word = about.constraint.string_list; *word; ++word) words << Words(*word);
  return words;
}

QList<int> NumberList(const SANE_Option_Descriptor& about) {
  QList<int> numbers;
  if (about.constraint_type == SANE_CONSTRAINT_WORD_LIST) {
    const SANE_Word* list = about.constraint.word_list;
    for (SANE_Word i = 1; i <= list[0]; ++i) numbers << qRound(FromWord(about, list[i]));
  } else if (about.constraint_type == SANE_CONSTRAINT_RANGE) {
    const double least = FromWord(about, about.constraint.range->min),
                 most = FromWord(about, about.constraint.range->max);
    for (const int usual : kUsualResolutions)
      if (usual >= least && usual <= most) numbers << usual;
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

}  // namespace

QList<ScannerInfo> ListScanners() {
  RequireSane();
  const SANE_Device** devices = nullptr;
  RequireGood(sane_get_devices(&devices, SANE_FALSE));
  QList<ScannerInfo> scanners;
  for (; *devices; ++devices) {
    const QString maker = Words((*devices)->vendor), model = Words((*devices)->model), id = Words((*devices)->name);
    scanners << ScannerInfo{id, u"%1 %2 (%3)"_s.arg(maker, model, id)};
  }
  return scanners;
}

bool IsFeeder(const QString& source) {
  return source.contains(u"ADF"_s, Qt::CaseInsensitive) || source.contains(u"feeder"_s, Qt::CaseInsensitive);
}

Scanner::Scanner(const QString& id) {
  RequireSane();
  RequireGood(sane_open(id.toUtf8().constData(), &handle_));
}

Scanner::~Scanner() { sane_close(handle_); }

std::optional<Scanner::Option> Scanner::Find(const QByteArray& name) const {
  SANE_Int count = 0;
  if (sane_control_option(handle_, 0, SANE_ACTION_GET_VALUE, &count, nullptr) != SANE_STATUS_GOOD) return {};
  for (SANE_Int index = 1; index < count; ++index) {
    const SANE_Option_Descriptor* about = sane_get_option_descriptor(handle_, index);
    if (about && about->name && name == about->name && SANE_OPTION_IS_ACTIVE(about->cap)) return Option{index, about};
  }
  return {};
}

QString Scanner::Text(const QByteArray& name) const {
  const auto option = Find(name);
  if (!option || option->about->type != SANE_TYPE_STRING) return {};
  QByteArray text(option->about->size + 1, 0);
  RequireGood(sane_control_option(handle_, option->index, SANE_ACTION_GET_VALUE, text.data(), nullptr));
  return Words(text.constData());
}

double Scanner::Number(const QByteArray& name) const {
  const auto option = Find(name);
  if (!option || option->about->size != SANE_Int(sizeof(SANE_Word))) return 0;
  SANE_Word word = 0;
  RequireGood(sane_control_option(handle_, option->index, SANE_ACTION_GET_VALUE, &word, nullptr));
  return FromWord(*option->about, word);
}

QByteArray Scanner::ResolutionOption() const {
  return Find(SANE_NAME_SCAN_RESOLUTION) ? SANE_NAME_SCAN_RESOLUTION : SANE_NAME_SCAN_X_RESOLUTION;
}

ScannerChoices Scanner::Choices() const {
  ScannerChoices choices;
  if (const auto source = Find(SANE_NAME_SCAN_SOURCE)) choices.sources = WordList(*source->about);
  if (const auto mode = Find(SANE_NAME_SCAN_MODE)) choices.modes = WordList(*mode->about);
  if (const auto resolution = Find(ResolutionOption())) choices.resolutions = NumberList(*resolution->about);
  choices.source = Text(SANE_NAME_SCAN_SOURCE);
  choices.mode = Text(SANE_NAME_SCAN_MODE);
  choices.resolution = qRound(Number(ResolutionOption()));
  return choices;
}

void Scanner::Set(const QByteArray& name, const QString& value) {
  const auto option = Find(name);
  if (!option || !SANE_OPTION_IS_SETTABLE(option->about->cap)) return;
  if (option->about->type != SANE_TYPE_STRING) return SetNumber(name, value.toDouble());
  QByteArray text = value.toUtf8();
  text.resize(qMax(text.size() + 1, qsizetype(option->about->size)));
  RequireGood(sane_control_option(handle_, option->index, SANE_ACTION_SET_VALUE, text.data(), nullptr));
}

void Scanner::SetNumber(const QByteArray& name, double number) {
  const auto option = Find(name);
  if (!option || !SANE_OPTION_IS_SETTABLE(option->about->cap) || option->about->size != SANE_Int(sizeof(SANE_Word)))
    return;
  SANE_Word word = Nearest(*option->about, ToWord(*option->about, number));
  RequireGood(sane_control_option(handle_, option->index, SANE_ACTION_SET_VALUE, &word, nullptr));
}

void Scanner::SetArea(const QSizeF& paper) {
  constexpr double kLargest = 30000;  // millimetres, brought down to what the scanner has
  const auto right = Find(SANE_NAME_SCAN_BR_X);
  const bool isEmpty = paper.isEmpty() || !right || right->about->unit != SANE_UNIT_MM;
  SetNumber(SANE_NAME_SCAN_TL_X, 0);
  SetNumber(SANE_NAME_SCAN_TL_Y, 0);
  SetNumber(SANE_NAME_SCAN_BR_X, isEmpty ? kLargest : paper.width());
  SetNumber(SANE_NAME_SCAN_BR_Y, isEmpty ? kLargest : paper.height());
}

// In this order: what a source or a mode offers is only known once it is chosen.
void Scanner::Apply(const ScanSettings& settings) {
  if (!settings.source.isEmpty()) Set(SANE_NAME_SCAN_SOURCE, settings.source);
  if (!settings.mode.isEmpty()) Set(SANE_NAME_SCAN_MODE, settings.mode);
  if (settings.resolution > 0) {
    SetNumber(ResolutionOption(), settings.resolution);
    SetNumber(SANE_NAME_SCAN_Y_RESOLUTION, settings.resolution);
  }
  SetArea(settings.paper);
}

std::optional<QImage> Scanner::ScanPage(const std::function<bool(int percent)>& goOn) {
  if (!goOn(0)) return std::nullopt;
  const SANE_Status started = sane_start(handle_);
  if (started == SANE_STATUS_NO_DOCS) return std::nullopt;
  RequireGood(started);
  std::optional<QImage> page = PageReader(handle_, goOn).Read();
  if (!page) return std::nullopt;
  const double dpi = Number(ResolutionOption());
  const int dotsPerMetre = qRound((dpi > 0 ? dpi : 300) / 0.0254);
  page->setDotsPerMeterX(dotsPerMetre);
  page->setDotsPerMeterY(dotsPerMetre);
  return page;
}

void Scanner::EndPages() { sane_cancel(handle_); }

}  // namespace folvane::scanning
