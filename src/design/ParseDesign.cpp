#include <QStringDecoder>
#include <set>
#include <type_traits>
#include <yaml-cpp/yaml.h>

#include "base/FileUpdate.h"
#include "design/DesignFile.h"
#include "design/Shape.h"

namespace folvane {
namespace design {
namespace {
using namespace Qt::Literals::StringLiterals;

[[noreturn]] void ThrowAt(const YAML::Mark& place, const QString& message) {
  if (place.is_null()) throw FileError(u"设计文件有错误：%1。"_s.arg(message));
  throw FileError(u"设计文件第 %1 行有错误：%2。"_s.arg(place.line + 1).arg(message));
}

QString TextOf(const YAML::Node& node, const QString& what) {
  if (node.IsNull()) return {};
  if (!node.IsScalar()) ThrowAt(node.Mark(), u"“%1”应是一个值"_s.arg(what));
  return QString::fromStdString(node.Scalar());
}

int NumberOf(const YAML::Node& node, const QString& what) {
  bool isNumber = false;
  const int number = TextOf(node, what).toInt(&isNumber);
  if (!isNumber) ThrowAt(node.Mark(), u"“%1”应是整数"_s.arg(what));
  return number;
}

bool FlagOf(const YAML::Node& node, const QString& what) {
  const QString text = TextOf(node, what).toLower();
  if (text == u"true" || text == u"yes") return true;
  if (text != u"false" && text != u"no") ThrowAt(node.Mark(), u"“%1”应是 true 或 false"_s.arg(what));
  return false;
}

QStringList TextsOf(const YAML::Node& node, const QString& what) {
  QStringList texts;
  if (node.IsNull()) return texts;
  if (!node.IsSequence()) ThrowAt(node.Mark(), u"“%1”应是一个列表"_s.arg(what));
  for (const YAML::Node& each : node) texts << TextOf(each, what);
  return texts;
}

template <class T>
void ReadValue(T& item, const Member<T>& value, const YAML::Node& node) {
  const QString what = QString::fromLatin1(value.key);
  if (const auto* text = std::get_if<QString T::*>(&value.member))
    item.** text = TextOf(node, what);
  else if (const auto* number = std::get_if<int T::*>(&value.member))
    item.** number = NumberOf(node, what);
  else if (const auto* flag = std::get_if<bool T::*>(&value.member))
    item.** flag = FlagOf(node, what);
  else
    item.*std::get<QStringList T::*>(value.member) = TextsOf(node, what);
}

// Each key once, and only such as mean something.
void RequireKeys(const YAML::Node& map, const std::set<std::string>& known) {
  std::set<std::string> seen;
  for (const auto& entry : map) {
    const std::string key = entry.first.IsScalar() ? entry.first.Scalar() : std::string();
    if (!known.count(key)) ThrowAt(entry.first.Mark(), u"不认识“%1”"_s.arg(QString::fromStdString(key)));
    if (!seen.insert(key).second) ThrowAt(entry.first.Mark(), u"“%1”写了两次"_s.arg(QString::fromStdString(key)));
  }
}

template <class T>
T ReadItem(const YAML::Node& node);

template <class T>
void ReadLists(T& holder, const YAML::Node& node) {
  Shape<T>::Lists([&](const char* key, const char16_t*, auto list) {
    using Item = typename std::decay_t<decltype(holder.*list)>::value_type;
    const YAML::Node items = node[key];
    if (!items || items.IsNull()) return;
    if (!items.IsSequence()) ThrowAt(items.Mark(), u"“%1”应是一个列表"_s.arg(QLatin1String(key)));
    for (const YAML::Node& each : items) {
      Item item = ReadItem<Item>(each);
      if (!std::is_same_v<Item, Design::NumberPart> && FindSame(holder.*list, item))
        ThrowAt(each.Mark(), u"%1写了两次"_s.arg(Shape<Item>::TitleOf(item).left(100)));
      (holder.*list).push_back(std::move(item));
    }
  });
}

template <class T>
T ReadItem(const YAML::Node& node) {
  if (!node.IsMap()) ThrowAt(node.Mark(), u"这里应是“名称: 值”"_s);
  std::set<std::string> known;
  T item;
  for (const Member<T>& value : Shape<T>::Values()) {
    known.insert(value.key);
    if (const YAML::Node found = node[value.key]) ReadValue(item, value, found);
  }
  Shape<T>::Lists([&](const char* key, const char16_t*, auto) { known.insert(key); });
  RequireKeys(node, known);
  ReadLists(item, node);
  return item;
}

void RequireWhole(const QByteArray& text) {
  QStringDecoder decoder(QStringDecoder::Utf8);
  static_cast<void>(QString(decoder(text)));
  if (decoder.hasError()) throw FileError(u"设计文件不是 UTF-8 编码。"_s);
  const QByteArray trimmed = text.trimmed();
  if (!trimmed.endsWith(QByteArray("\n") + kFileEnd))
    throw FileError(u"设计文件不完整：最后一行应是“...”。文件可能被截断了。"_s);
}

void RequireVersion(const YAML::Node& root) {
  const YAML::Node version = root.IsMap() ? root[kFileKey] : YAML::Node(YAML::NodeType::Undefined);
  if (!version) throw FileError(u"这不是设计文件：没有“folvane-design”一行。"_s);
  const int number = NumberOf(version, QLatin1String(kFileKey));
  if (number != kFileVersion)
    ThrowAt(version.Mark(), u"这是第 %1 版的设计文件，本程序只认识第 %2 版"_s.arg(number).arg(kFileVersion));
}

Design Parse(const QByteArray& text) {
  const std::vector<YAML::Node> documents = YAML::LoadAll(text.toStdString());
  if (documents.size() != 1) throw FileError(u"设计文件应只有一个文档，“...”只能在最后。"_s);
  const YAML::Node& root = documents.front();
  RequireVersion(root);
  std::set<std::string> known{kFileKey};
  Shape<Design>::Lists([&](const char* key, const char16_t*, auto) { known.insert(key); });
  RequireKeys(root, known);
  Design design;
  ReadLists(design, root);
  PutInOrder(design);
  return design;
}

}  // namespace
}  // namespace design

Design ParseDesign(const QByteArray& text) {
  design::RequireWhole(text);
  try {
    return design::Parse(text);
  } catch (const YAML::Exception& error) {
    design::ThrowAt(error.mark, QString::fromStdString("不是正确的 YAML（" + error.msg + "）"));
  }
}

}  // namespace folvane
