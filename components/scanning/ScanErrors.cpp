#include "components/scanning/ScanErrors.h"

namespace folvane::scanning {
using namespace Qt::Literals::StringLiterals;

QString StatusInWords(SANE_Status status) {
  switch (status) {
    case SANE_STATUS_UNSUPPORTED:
      return u"扫描仪不支持这项操作。"_s;
    case SANE_STATUS_CANCELLED:
      return u"扫描已取消。"_s;
    case SANE_STATUS_DEVICE_BUSY:
      return u"扫描仪正忙，可能被其他程序占用，请稍后再试。"_s;
    case SANE_STATUS_INVAL:
      return u"扫描仪不接受所选的设置，或者已经断开，请检查后刷新。"_s;
    case SANE_STATUS_EOF:
      return u"扫描仪没有送出完整的图像。"_s;
    case SANE_STATUS_JAMMED:
      return u"进纸器卡纸，请取出卡住的纸张后再试。"_s;
    case SANE_STATUS_NO_DOCS:
      return u"进纸器中没有纸张。"_s;
    case SANE_STATUS_COVER_OPEN:
      return u"扫描仪的盖板没有关好。"_s;
    case SANE_STATUS_IO_ERROR:
      return u"与扫描仪通信出错，请检查电源和连接线。"_s;
    case SANE_STATUS_NO_MEM:
      return u"内存不足，请降低分辨率后再试。"_s;
    case SANE_STATUS_ACCESS_DENIED:
      return u"没有使用扫描仪的权限，请与系统管理员联系。"_s;
    default:
      return u"扫描仪报告了错误：%1"_s.arg(QString::fromUtf8(sane_strstatus(status)));
  }
}

}  // namespace folvane::scanning
