#pragma once

#include <QImage>
#include <QSizeF>
#include <QString>
#include <memory>

#include <folvane/DataError.h>

namespace folvane::documents {

/// A drawn page has at most so many pixels (64 MB); a larger scale gives that many.
constexpr double kMostPixels = 16e6;
/// The longest side of an image that is decoded or drawn, in pixels: 42 m at 600 dots per inch. Qt loses count when it
/// makes a side smaller by a factor of 32768.
constexpr int kLongestSide = 1'000'000;

/// The pages of one file. A source is used from one thread. Members throw DataError File where a page is damaged or
/// too large.
class PageSource {
 public:
  virtual ~PageSource() = default;
  virtual int PageCount() const = 0;
  /// The size of a page, from 0, in points of 1/72 inch.
  virtual QSizeF SizeOf(int page) = 0;
  /// @param scale pixels to a point; less is taken where the picture would become larger than kMostPixels
  virtual QImage Render(int page, double scale) = 0;
};

/// The file asks for a password, or for another than the one given.
class PasswordNeeded : public DataError {
 public:
  explicit PasswordNeeded(bool wrong);
  bool IsWrong() const { return wrong_; }

 private:
  bool wrong_;
};

/// The pages of a file, nullptr where files of that kind are not shown. What is in the file decides, not its type
/// alone.
/// @param type the ending of the file, such as ".pdf"
/// @throws DataError File where the file is damaged or too large, PasswordNeeded
std::unique_ptr<PageSource> OpenPages(const QString& path, const QString& type, const QString& password = {});

/// The size in pixels of a page at a scale, within kMostPixels and kLongestSide.
QSize SizeInPixels(const QSizeF& points, double scale);

}  // namespace folvane::documents
