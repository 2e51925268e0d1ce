#include "icon_ico.h"

#include <QBuffer>
#include <QDataStream>
#include <QImage>

#include "platform/qt/program_icon.h"

namespace morvane {
namespace {

constexpr int kHeader = 6;
constexpr int kEntry = 16;
constexpr int kDepth = 32;
constexpr int kPackedFrom = 256;  // smaller ones are read by programs that know no PNG

class LittleEndian {
 public:
  QByteArray Bytes;

  void Add(quint8 number) { stream_ << number; }
  void Add16(int number) { stream_ << static_cast<quint16>(number); }
  void Add32(qint64 number) { stream_ << static_cast<quint32>(number); }
  void AddRaw(const QByteArray& bytes) {
    stream_.writeRawData(bytes, static_cast<int>(bytes.size()));
  }

  LittleEndian() { stream_.setByteOrder(QDataStream::LittleEndian); }

 private:
  QDataStream stream_{&Bytes, QIODevice::WriteOnly};
};

QByteArray Png(const QImage& picture) {
  QByteArray bytes;
  QBuffer file(&bytes);
  picture.save(&file, "PNG");
  return bytes;
}

/// A bitmap from the lowest row up, and behind it what is left out where nobody knows of alpha.
QByteArray Bitmap(const QImage& picture) {
  const int size = picture.width();
  LittleEndian bitmap;
  for (const int number : {40, size, 2 * size}) bitmap.Add32(number);
  for (const int number : {1, kDepth}) bitmap.Add16(number);
  for (int i = 0; i < 6; ++i) bitmap.Add32(0);
  for (int y = size - 1; y >= 0; --y) {
    for (int x = 0; x < size; ++x) bitmap.Add32(picture.pixel(x, y));
  }
  const int maskRow = (size + kDepth - 1) / kDepth;
  for (int y = size - 1; y >= 0; --y) {
    for (int word = 0; word < maskRow; ++word) {
      for (int x = word * kDepth; x < (word + 1) * kDepth; x += 8) {
        quint8 left = 0;
        for (int i = x; i < x + 8; ++i) {
          const bool out = i < size && qAlpha(picture.pixel(i, y)) == 0;
          left = static_cast<quint8>(left << 1 | (out ? 1 : 0));
        }
        bitmap.Add(left);
      }
    }
  }
  return bitmap.Bytes;
}

QByteArray Stored(int size) {
  const QImage picture = ProgramPicture(size).convertToFormat(QImage::Format_ARGB32);
  return size < kPackedFrom ? Bitmap(picture) : Png(picture);
}

}  // namespace

QByteArray IconIco(const QList<int>& sizes) {
  LittleEndian file;
  for (const auto number : {qsizetype{0}, qsizetype{1}, sizes.size()}) {
    file.Add16(static_cast<int>(number));
  }
  qint64 at = kHeader + kEntry * sizes.size();
  QByteArray pictures;
  for (const int size : sizes) {
    const QByteArray picture = Stored(size);
    for (const int side : {size, size}) file.Add(static_cast<quint8>(side));  // 256 is 0
    file.Add16(0);
    file.Add16(1);
    file.Add16(kDepth);
    file.Add32(picture.size());
    file.Add32(at);
    at += picture.size();
    pictures += picture;
  }
  file.AddRaw(pictures);
  return file.Bytes;
}

}  // namespace morvane
