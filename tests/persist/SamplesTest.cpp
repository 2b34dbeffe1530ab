// What ADO shows of its own files in its XML, and what is printed of them.
#include <QJsonArray>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <gmock/gmock.h>
#include <map>

#include "base/FileUpdate.h"
#include "data/Schema.h"
#include "persist/Printed.h"
#include "persist/Tablegrams.h"

namespace folvane::test {
namespace {
using namespace Qt::Literals::StringLiterals;

/// Values by the number of their field.
using XmlRow = std::map<int, QString>;

struct XmlRecord {
  QString set, status;
  XmlRow values, original;
};

/// Reads the XML of a record set: which attribute is which field, and the rows of all record sets as they come.
class XmlRecords {
 public:
  explicit XmlRecords(const QByteArray& xml) : reader_(xml) {
    while (!reader_.atEnd()) {
      reader_.readNext();
      if (reader_.isStartElement()) Begin();
      if (reader_.isEndElement()) End();
    }
  }
  std::vector<XmlRecord> records;

 private:
  void Begin() {
    const QString name = reader_.name().toString(), prefix = reader_.prefix().toString();
    const QXmlStreamAttributes attributes = reader_.attributes();
    if (name == u"ElementType"_s) sets_.push_back(attributes.value(u"name"_s).toString());
    if (name == u"AttributeType"_s)
      numbers_[sets_.back()][attributes.value(u"name"_s).toString()] = Attribute(u"rs:number"_s).toInt();
    if (prefix == u"rs"_s) inside_.push_back(name);
    if (prefix == u"z"_s || (prefix.isEmpty() && numbers_.contains(name))) Add(name);
  }
  void End() {
    if (reader_.name() == u"ElementType"_s) sets_.pop_back();
    if (reader_.prefix() == u"rs"_s) inside_.pop_back();
  }
  QString Attribute(const QString& name) const {
    for (const QXmlStreamAttribute& attribute : reader_.attributes())
      if (attribute.qualifiedName() == name) return attribute.value().toString();
    return {};
  }
  void Add(const QString& set) {
    XmlRow row;
    for (const QXmlStreamAttribute& attribute : reader_.attributes())
      if (attribute.prefix().isEmpty()) row[numbers_[set][attribute.name().toString()]] = attribute.value().toString();
    const QString place = inside_.back();
    if (place == u"original"_s) {
      records.push_back({set, u"changed"_s, row, row});
    } else if (place == u"update"_s) {
      for (const auto& [number, value] : row) records.back().values[number] = value;
      for (const QString& nulled : Attribute(u"rs:forcenull"_s).split(u' ', Qt::SkipEmptyParts))
        records.back().values.erase(numbers_[set][nulled]);
    } else {
      const std::map<QString, QString> states{{u"insert"_s, u"inserted"_s}, {u"delete"_s, u"deleted"_s}};
      records.push_back({set, states.contains(place) ? states.at(place) : u"unchanged"_s, row, {}});
    }
  }

  QXmlStreamReader reader_;
  QStringList sets_, inside_;
  std::map<QString, std::map<QString, int>> numbers_;
};

/// A printed value as ADO writes it in its XML.
QString InXml(const QJsonValue& value, int type) {
  if (value.isBool()) return value.toBool() ? u"True"_s : u"False"_s;
  if (value.isDouble()) return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
  QString text = value.toString();
  if (type == AdoType::Numeric) text.replace(QRegularExpression(u"^(-?)0\\."_s), u"\\1."_s);
  return text;
}

/// The text of an attribute without what the layout of XML does to it: line breaks are blanks, and hexadecimal numbers
/// are broken into lines.
std::string Spaced(QString text, int type) {
  if (GroupOfType(type) == TypeGroup::Binary) text.remove(QRegularExpression(u"\\s"_s));
  return text.replace(QRegularExpression(u"[\\r\\n\\t]"_s), u" "_s).trimmed().toStdString();
}

void ExpectSameValues(const QJsonObject& values, const XmlRow& xml, const std::vector<QJsonObject>& fields) {
  for (const QJsonObject& field : fields) {
    const int number = field[u"ordinal"_s].toInt();
    const QJsonValue value = values[field[u"key"_s].toString()];
    ASSERT_FALSE(value.isUndefined());
    const auto shown = xml.find(number);
    ASSERT_EQ(value.isNull(), shown == xml.end()) << field[u"name"_s].toString().toStdString();
    if (value.isNull()) continue;
    const int type = field[u"type"_s].toInt();
    EXPECT_EQ(Spaced(InXml(value, type), type), Spaced(shown->second, type))
        << field[u"name"_s].toString().toStdString();
  }
}

/// The fields of a record set.
std::vector<QJsonObject> FieldsOf(const Printed& printed, int set) {
  std::vector<QJsonObject> fields;
  for (const QJsonObject& field : printed.fields)
    if (field[u"recordset"_s].toInt() == set) fields.push_back(field);
  return fields;
}

/// Compares the rows of one state in one record set; ADO's XML has the deleted ones behind the others.
void ExpectSameRows(const Printed& printed, int set, const QString& status, const std::vector<XmlRecord>& records) {
  const QString name = set == 1 ? u"row"_s : printed.sets[std::size_t(set - 1)][u"chapter"_s].toString();
  std::vector<XmlRecord> shown;
  for (const XmlRecord& record : records)
    if (record.set == name && record.status == status) shown.push_back(record);
  std::size_t at = 0;
  for (const QJsonObject& row : printed.rows) {
    if (row[u"recordset"_s].toInt() != set || row[u"status"_s].toString() != status) continue;
    ASSERT_LT(at, shown.size());
    ExpectSameValues(row[u"values"_s].toObject(), shown[at].values, FieldsOf(printed, set));
    if (status == u"changed"_s)
      ExpectSameValues(row[u"original"_s].toObject(), shown[at].original, FieldsOf(printed, set));
    ++at;
  }
  EXPECT_EQ(at, shown.size());
}

TEST(SamplesOfRecordSetFiles, EachPrintsTheValuesOfItsXml) {
  constexpr int kKorean = 949;  // of the machine that wrote them
  for (const QString& sample : Samples()) {
    SCOPED_TRACE(sample.toStdString());
    const Printed printed = PrintedFile(ReadFile(sample + u".adtg"_s), kKorean);
    const XmlRecords xml(ReadFile(sample + u".xml"_s));
    for (int set = 1; set <= int(printed.sets.size()); ++set)
      for (const QString& status : {u"unchanged"_s, u"changed"_s, u"inserted"_s, u"deleted"_s})
        ExpectSameRows(printed, set, status, xml.records);
  }
}

}  // namespace
}  // namespace folvane::test
