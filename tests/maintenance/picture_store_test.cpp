#include "maintenance/picture_store.h"

#include <gtest/gtest.h>

#include <memory>

namespace morvane::maintenance {
namespace {

using Line = std::array<std::uint8_t, PixelPlane::kWidth>;

class Pictures : public ::testing::Test {
 protected:
  std::unique_ptr<PictureStore> store = std::make_unique<PictureStore>();
  PaintedPicture& shown = store->Picture1;

  void TakeAll(PictureStore::Kind kind, std::uint8_t value) {
    store->ImageMode = kind;
    Line line;
    line.fill(value);
    for (int y = 0; y < PixelPlane::kHeight; ++y) store->Take(y, line);
  }
};

TEST_F(Pictures, ALineIsGreyAndTheRowBelowItIsRed) {
  Line line{};
  line[0] = 10;
  line[127] = 255;
  store->Take(5, line);
  EXPECT_EQ(shown.At(0, 5), 0x0A0A0AU);
  EXPECT_EQ(shown.At(127, 5), 0xFFFFFFU);
  EXPECT_EQ(shown.At(1, 5), 0U);
  for (int x = 0; x < 128; ++x) EXPECT_EQ(shown.At(x, 6), 0x0000FFU);
  EXPECT_EQ(shown.At(128, 5), kWhite) << "the last column stays unused";
  EXPECT_EQ(store->CardImage.At(127, 5), 255);
  EXPECT_EQ(store->LabelImage.At(127, 5), 0);
}

TEST_F(Pictures, TheNextLinePaintsOverTheRedRowAndTheLastOneStays) {
  TakeAll(PictureStore::Kind::kGrey, 7);
  for (const int x : {0, 127}) {
    EXPECT_EQ(shown.At(x, 0), 0x070707U);
    EXPECT_EQ(shown.At(x, 191), 0x070707U);
    EXPECT_EQ(shown.At(x, 192), kRed);
  }
}

TEST_F(Pictures, LabelsAreBlackOnWhiteAndGoIntoBothStores) {
  store->ImageMode = PictureStore::Kind::kLabels;
  Line line{};
  line[1] = 1;
  line[2] = 2;
  line[3] = 3;
  store->Take(0, line);
  EXPECT_EQ(shown.At(0, 0), kWhite);
  for (const int x : {1, 2, 3}) {
    EXPECT_EQ(shown.At(x, 0), kBlack);
    EXPECT_EQ(store->LabelImage.At(x, 0), x);
    EXPECT_EQ(store->CardImage.At(x, 0), x) << "the grey is overwritten";
  }
}

TEST_F(Pictures, AGreyPictureLeavesTheLabels) {
  TakeAll(PictureStore::Kind::kLabels, 3);
  TakeAll(PictureStore::Kind::kGrey, 200);
  EXPECT_EQ(store->LabelImage.At(64, 96), 3);
  EXPECT_EQ(store->CardImage.At(64, 96), 200);
}

TEST_F(Pictures, TheZoomHasAColourForEachClass) {
  TakeAll(PictureStore::Kind::kLabels, 0);
  EXPECT_EQ(store->Magnified(0, 0), 0xFFFFFFU);
  store->LabelImage.Set(1, 0, 1);
  store->LabelImage.Set(2, 0, 2);
  store->LabelImage.Set(3, 0, 3);
  EXPECT_EQ(store->Magnified(1, 0), 0U);
  EXPECT_EQ(store->Magnified(2, 0), 0x0000C0U);
  EXPECT_EQ(store->Magnified(3, 0), 0xFFC000U) << "red 0, green 192, blue 255";
  store->ImageMode = PictureStore::Kind::kGrey;
  store->CardImage.Set(3, 0, 9);
  EXPECT_EQ(store->Magnified(3, 0), 0x090909U);
}

TEST_F(Pictures, TheFramesAreRedOutlines) {
  store->DrawFrames({.XMin = 10, .XMax = 20, .YMin = 30, .YMax = 50},
                    {.XMin = 60, .XMax = 70, .YMin = 80, .YMax = 90});
  for (const auto& [x, y] :
       {std::pair{10, 30}, {20, 30}, {10, 50}, {20, 50}, {15, 30}, {20, 40}, {60, 80}, {70, 90}}) {
    EXPECT_EQ(shown.At(x, y), kRed) << x << "," << y;
  }
  EXPECT_EQ(shown.At(15, 40), kWhite) << "nothing is filled";
  EXPECT_EQ(shown.At(21, 50), kWhite);
}

TEST_F(Pictures, TheStartPointIsANestOfSquaresInTheBandThatIsSearched) {
  store->DrawStart(66, 60);
  EXPECT_EQ(shown.At(36, 20), kYellow);
  EXPECT_EQ(shown.At(96, 190), kYellow);
  for (const auto& [half, colour] :
       {std::pair{1, kWhite}, {2, kYellow}, {3, kYellow}, {4, kBlue}, {5, kBlue}, {6, kWhite}}) {
    EXPECT_EQ(shown.At(66 - half, 60), colour) << half;
    EXPECT_EQ(shown.At(66, 60 + half), colour) << half;
  }
}

TEST_F(Pictures, WhatIsDrawnBeyondTheEdgeIsClipped) {
  store->DrawStart(0, 0);
  EXPECT_EQ(shown.At(30, 20), kYellow);
  EXPECT_EQ(shown.At(2, 2), kYellow);
  EXPECT_EQ(shown.At(0, 5), kBlue);
  store->DrawStart(255, 255);
  EXPECT_EQ(shown.At(128, 192), kWhite);
}

}  // namespace
}  // namespace morvane::maintenance
