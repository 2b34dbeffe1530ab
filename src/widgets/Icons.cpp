
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <folvane/Icons.h>

// Resources of a static library are dropped by the linker unless someone names them, and the naming has to stand
// outside every namespace.
static void InitWidgetResources() { Q_INIT_RESOURCE(FolvaneIcons); }

namespace folvane {
namespace {
using namespace Qt::Literals::StringLiterals;

// The colours that stand in the drawings: strokes are currentColor, the accent is this blue.
constexpr char kLine[] = "currentColor";
constexpr char kAccent[] = "#0b6bcb";
constexpr QRgb kAccentOnLight = 0xff0b6bcb;
constexpr QRgb kAccentOnDark = 0xff6cb8ff;

struct Tint {
  QColor line, accent;
};

QColor Mix(const QColor& colour, const QColor& ground, qreal share) {
  const auto channel = [share](int above, int below) { return qRound(above * share + below * (1 - share)); };
  return QColor(channel(colour.red(), ground.red()), channel(colour.green(), ground.green()),
                channel(colour.blue(), ground.blue()));
}

// Strokes are a little softer than the text beside them: at equal darkness they would look heavier.
Tint TintFor(QIcon::Mode mode) {
  const QPalette palette = QGuiApplication::palette();
  const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
  const QColor ground = palette.color(QPalette::Active, QPalette::Window);
  if (mode == QIcon::Disabled) {
    const QColor grey = Mix(text, ground, 0.4);
    return {grey, grey};
  }
  if (mode == QIcon::Selected) {
    const QColor selected = palette.color(QPalette::Active, QPalette::HighlightedText);
    return {selected, selected};
  }
  const bool dark = text.lightness() > ground.lightness();
  return {Mix(text, ground, 0.82), QColor(dark ? kAccentOnDark : kAccentOnLight)};
}

class TintedIconEngine : public QIconEngine {
 public:
  TintedIconEngine(const QString& name, const QByteArray& drawing) : name_(name), drawing_(drawing) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    Draw(TintFor(mode), *painter, rect);
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
    const Tint tint = TintFor(mode);
    const QString key = u"folvane/%1/%2x%3/%4/%5"_s.arg(name_)
                            .arg(size.width())
                            .arg(size.height())
                            .arg(tint.line.rgba())
                            .arg(tint.accent.rgba());
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) return pixmap;
    pixmap = QPixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    Draw(tint, painter, QRect(QPoint(), size));
    painter.end();
    QPixmapCache::insert(key, pixmap);
    return pixmap;
  }

  // A window manager takes a window's icon in the sizes that are told here.
  QList<QSize> availableSizes(QIcon::Mode, QIcon::State) override {
    return {{16, 16}, {24, 24}, {32, 32}, {48, 48}, {64, 64}, {128, 128}, {256, 256}};
  }

  QSize actualSize(const QSize& size, QIcon::Mode, QIcon::State) override { return size; }
  QString key() const override { return u"folvane"_s; }
  QIconEngine* clone() const override { return new TintedIconEngine(*this); }
  bool isNull() override { return drawing_.isEmpty(); }

 private:
  void Draw(const Tint& tint, QPainter& painter, const QRect& rect) const {
    QByteArray drawing = drawing_;
    drawing.replace(kAccent, tint.accent.name().toLatin1());
    drawing.replace(kLine, tint.line.name().toLatin1());
    QSvgRenderer renderer(drawing);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter, rect);
  }

  QString name_;
  QByteArray drawing_;
};

QDir Drawings() {
  static const bool ready = (InitWidgetResources(), true);
  Q_UNUSED(ready);
  return QDir(u":/folvane/icons"_s);
}

}  // namespace

QIcon Icon(const QString& name) {
  QFile file(Drawings().filePath(name.toLower() + u".svg"_s));
  if (name.isEmpty() || !file.open(QIODevice::ReadOnly)) return {};
  return QIcon(new TintedIconEngine(name.toLower(), file.readAll()));
}

QStringList IconNames() {
  QStringList names;
  for (const QString& file : Drawings().entryList(QDir::Files, QDir::Name)) names << file.chopped(4);
  return names;
}

}  // namespace folvane
