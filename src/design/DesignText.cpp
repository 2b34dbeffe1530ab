#include <QRegularExpression>
#include <type_traits>
#include <yaml-cpp/yaml.h>

#include "design/DesignFile.h"
#include "design/Shape.h"

namespace folvane {
namespace design {
namespace {
using namespace Qt::Literals::StringLiterals;

// What no reader of such files takes for anything but a text. Everything else stands in quotes.
bool IsPlain(const QString& text) {
  static const QRegularExpression word(u"^[A-Za-z\\p{Han}][A-Za-z0-9_\\p{Han}]*$"_s);
  static const QRegularExpression other(u"^(true|false|yes|no|on|off|y|n|null)$"_s,
                                        QRegularExpression::CaseInsensitiveOption);
  return word.match(text).hasMatch() && !other.match(text).hasMatch();
}

void WriteText(YAML::Emitter& file, const QString& text) {
  if (!IsPlain(text)) file << YAML::DoubleQuoted;
  file << text.toStdString();
}

template <class T>
bool IsUsual(const T& item, const Member<T>& value) {
  static const T usual;
  return std::visit([&](auto member) { return item.*member == usual.*member; }, value.member);
}

template <class T>
void WriteValue(YAML::Emitter& file, const T& item, const Member<T>& value) {
  if (IsUsual(item, value)) return;
  file << YAML::Key << value.key << YAML::Value;
  if (const auto* text = std::get_if<QString T::*>(&value.member)) {
    WriteText(file, item.**text);
  } else if (const auto* number = std::get_if<int T::*>(&value.member)) {
    file << item.**number;
  } else if (const auto* flag = std::get_if<bool T::*>(&value.member)) {
    file << item.**flag;
  } else {
    file << YAML::Flow << YAML::BeginSeq;
    for (const QString& each : item.*std::get<QStringList T::*>(value.member)) WriteText(file, each);
    file << YAML::EndSeq;
  }
}

// What has no lists within stands in one line.
template <class T>
constexpr bool kIsOneLine = !std::is_same_v<T, Design::Table> && !std::is_same_v<T, Design::Dictionary> &&
                            !std::is_same_v<T, Design::TransferMap> && !std::is_same_v<T, Design::User>;

template <class T>
void WriteLists(YAML::Emitter& file, const T& holder);

template <class T>
void WriteItem(YAML::Emitter& file, const T& item) {
  if constexpr (kIsOneLine<T>) file << YAML::Flow;
  file << YAML::BeginMap;
  for (const Member<T>& value : Shape<T>::Values()) WriteValue(file, item, value);
  WriteLists(file, item);
  file << YAML::EndMap;
}

template <class T>
void WriteLists(YAML::Emitter& file, const T& holder) {
  Shape<T>::Lists([&](const char* key, const char16_t*, auto list) {
    if ((holder.*list).empty()) return;
    file << YAML::Key << key << YAML::Value << YAML::BeginSeq;
    for (const auto& item : holder.*list) WriteItem(file, item);
    file << YAML::EndSeq;
  });
}

}  // namespace
}  // namespace design

QByteArray DesignText(const Design& design) {
  Design inOrder = design;
  PutInOrder(inOrder);
  YAML::Emitter file;
  file.SetIndent(2);
  file << YAML::BeginMap << YAML::Key << design::kFileKey << YAML::Value << design::kFileVersion;
  design::WriteLists(file, inOrder);
  file << YAML::EndMap;
  return QByteArray(file.c_str(), qsizetype(file.size())) + '\n' + design::kFileEnd + '\n';
}

}  // namespace folvane
