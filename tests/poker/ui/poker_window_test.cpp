#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <set>

#include "poker/ui/deal_picture.h"
#include "poker/ui/poker_desk.h"

namespace morvane::poker {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using PokerWindowTest = PokerDesk;

TEST_F(PokerWindowTest, HasItsNamesAndItsCaptions) {
  Contact();
  EXPECT_EQ(window->objectName(), "Poker");
  EXPECT_EQ(window->windowTitle(), "Morvane - Poker - Simulated machine");
  const auto caption = [this](const char* name) {
    return QString::fromStdString(Text(name)).remove('&').toStdString();
  };
  EXPECT_EQ(caption("Generate"), "Create new deals set");
  EXPECT_EQ(caption("FirstDeal"), "First Run  Current Deal");
  EXPECT_EQ(caption("SecondDeal"), "Second Run");
  EXPECT_EQ(caption("ThirdDeal"), "Third Run");
  EXPECT_EQ(caption("FourthDeal"), "Fourth Run");
  EXPECT_EQ(caption("NextDeal"), "    First Run      Next Deal");
  EXPECT_EQ(caption("CancelDeal"), "Cancel Runs");
  EXPECT_EQ(caption("Read"), "Read Current Deal");
  EXPECT_EQ(caption("ReadNext"), "Read Next   Deal");
  EXPECT_EQ(caption("Poker_print_setup"), "Printer Setup");
  EXPECT_EQ(Text("Number_deals"), "10");
  EXPECT_EQ(Text("Deal_label"), "No order");
}

TEST_F(PokerWindowTest, BeforeTheMachineAnswersAnOrderCanBeMadeButNotRun) {
  OpenWindow<PokerWindow>(poker);
  EXPECT_FALSE(Visible("Card_Index_j"));
  EXPECT_EQ(Text("lblProgress"), "Waiting for the machine ...");
  EXPECT_EQ(On(), "Generate,Poker_Load,Poker_print_setup,cmdExit");
  Click("Generate");
  EXPECT_FALSE(Enabled("FirstDeal"));
  WaitForContact();
  EXPECT_TRUE(Enabled("FirstDeal"));
  EXPECT_TRUE(Visible("Card_Index_j"));
  EXPECT_EQ(Text("txtStatus"), "Idle");
}

TEST_F(PokerWindowTest, ALetterCreatesAnOrderAndBringsToItsFirstRun) {
  Contact();
  PressLetter(Qt::Key_W, "Generate");
  EXPECT_EQ(Text("Deal_label"), "Deal: 1 of 10");
  EXPECT_EQ(Text("Label1"), "Ready for first run");
  EXPECT_EQ(FocusName(), "FirstDeal");
  EXPECT_TRUE(test::Find<QPushButton>(*window, "FirstDeal").isDefault());
  EXPECT_EQ(On(),
            "Generate,Poker_Load,Poker_Save,Poker_Print,Poker_print_setup,Nextd,Last,FirstDeal,"
            "cmdExit");
}

TEST_F(PokerWindowTest, AnEmptySetIsToBeRead) {
  Contact();
  PressLetter(Qt::Key_Y, "Empty_set");
  PressLetter(Qt::Key_W, "Generate");
  EXPECT_EQ(Text("Label1"), "Ready for read");
  EXPECT_EQ(FocusName(), "Read");
  EXPECT_EQ(On(), "Generate,Poker_Load,Poker_print_setup,Nextd,Last,Read,cmdExit");
}

TEST_F(PokerWindowTest, TheNumberOfDealsIsTypedAndEnterCreatesThem) {
  Contact();
  Focus("Number_deals");
  test::Find<QLineEdit>(*window, "Number_deals").selectAll();
  test::Type(*window, "42");
  Press(Qt::Key_Return);
  EXPECT_EQ(Text("Deal_label"), "Deal: 1 of 42");
}

TEST_F(PokerWindowTest, MoreThan100DealsAreRefusedAndTheBoxShows1) {
  Contact();
  Focus("Number_deals");
  test::Find<QLineEdit>(*window, "Number_deals").selectAll();
  test::Type(*window, "101");
  desk.AnswerBox(QMessageBox::Ok);
  PressLetter(Qt::Key_W, "Generate");
  EXPECT_THAT(desk.Boxes, SizeIs(1));
  EXPECT_EQ(Text("Number_deals"), "1");
  EXPECT_FALSE(poker.Order().PokerOrderExists);
  PressLetter(Qt::Key_W, "Generate");
  EXPECT_EQ(Text("Deal_label"), "Deal: 1 of 1");
}

TEST_F(PokerWindowTest, TheWalkGoesFromDealToDeal) {
  Order();
  EXPECT_EQ(Text("Deal_label"), "Deal: 1 of 3");
  Click("Nextd");
  EXPECT_EQ(Text("Deal_label"), "Deal: 2 of 3");
  EXPECT_TRUE(Enabled("First") && Enabled("Prevoius") && Enabled("Nextd") && Enabled("Last"));
  PressLetter(Qt::Key_L, "Last");
  EXPECT_EQ(Text("Deal_label"), "Deal: 3 of 3");
  EXPECT_TRUE(Enabled("First") && Enabled("Prevoius"));
  EXPECT_FALSE(Enabled("Nextd") || Enabled("Last"));
  PressLetter(Qt::Key_V, "Prevoius");
  EXPECT_EQ(Text("Deal_label"), "Deal: 2 of 3");
  PressLetter(Qt::Key_F, "First");
  EXPECT_EQ(Text("Deal_label"), "Deal: 1 of 3");
  EXPECT_FALSE(Enabled("First") || Enabled("Prevoius"));
}

TEST_F(PokerWindowTest, ThePictureIsOfTheDealThatIsShown) {
  Order();
  const auto spoken = [this] {
    return test::Find<DealPicture>(*window, "picReq1").SpokenText().toStdString();
  };
  const std::string first = spoken();
  EXPECT_EQ(first.find("empty"), std::string::npos) << first;
  Click("Nextd");
  EXPECT_NE(spoken(), first);
  Click("Prevoius");
  EXPECT_EQ(spoken(), first);
}

TEST_F(PokerWindowTest, TheTextsOfTheOrderAreWrittenAsTheyAreTyped) {
  Order();
  Focus("Poker_Event");
  test::Type(*window, "Friday");
  EXPECT_EQ(poker.Order().Poker_Event, "Friday");
  Press(Qt::Key_Return);
  EXPECT_EQ(FocusName(), "Poker_Site") << "Enter starts no run from a text";
  test::Type(*window, "Room 2");
  Press(Qt::Key_Return);
  test::Type(*window, "1 May");
  EXPECT_EQ(poker.Order().Poker_Site, "Room 2");
  EXPECT_EQ(poker.Order().Poker_Date, "1 May");
  EXPECT_FALSE(poker.Running());
  desk.AnswerBox(QMessageBox::Ok);
  Click("Generate");
  EXPECT_EQ(Text("Poker_Event") + Text("Poker_Site") + Text("Poker_Date") + Text("Poker_File"), "");
}

TEST_F(PokerWindowTest, JumboCardsAreStoredAndTheSettingIsShown) {
  Contact();
  EXPECT_TRUE(test::Find<QAbstractButton>(*window, "Card_Index_st").isChecked());
  PressLetter(Qt::Key_J, "Card_Index_j");
  EXPECT_EQ(poker.Options().Cards.CardIndex, 1);
  EXPECT_EQ(desk.Store.Get(kCardIndex), "1");
  Focus("Card_Index_st");
  Click("Card_Index_st");
  EXPECT_EQ(poker.Options().Cards.CardIndex, 0);
}

TEST_F(PokerWindowTest, OnlyTheHighestServiceLevelCanTest) {
  desk.Prog.ServiceLevel = 1;
  Contact();
  EXPECT_FALSE(Visible("Test") || Visible("TestText"));
}

TEST_F(PokerWindowTest, TheTestTextIsShown) {
  desk.Prog.ServiceLevel = 2;
  Contact();
  EXPECT_TRUE(Visible("TestText"));
  Focus("Test");
  Press(Qt::Key_Space);
  EXPECT_NE(poker.TestText(), "");
  EXPECT_EQ(test::Find<QPlainTextEdit>(*window, "TestText").toPlainText().toStdString(),
            QString::fromStdString(poker.TestText()).replace("\r\n", "\n").toStdString());
}

// Keys.

TEST_F(PokerWindowTest, NoLetterIsGivenTwice) {
  Contact();
  std::set<QChar> letters;
  const auto take = [&letters](const QString& caption) {
    const auto at = caption.indexOf('&');
    if (at < 0) return;
    EXPECT_TRUE(letters.insert(caption[at + 1].toUpper()).second) << caption.toStdString();
  };
  for (const auto* button : window->findChildren<QAbstractButton*>()) take(button->text());
  for (const auto* label : window->findChildren<QLabel*>()) take(label->text());
  EXPECT_EQ(letters.size(), 22U) << "17 buttons, Exit, two kinds of set, their number, Jumbo";
}

TEST_F(PokerWindowTest, TheTabKeyFollowsTheEye) {
  Order();
  Focus("Nextd");
  std::vector<std::string> names;
  do {
    names.push_back(FocusName());
    Press(Qt::Key_Tab);
  } while (FocusName() != "Nextd" && names.size() < 40);
  EXPECT_THAT(names, ElementsAre("Nextd", "Last", "Number_deals", "Random", "Generate",
                                 "Poker_Event", "Poker_Site", "Poker_Date", "Poker_File",
                                 "Poker_Load", "Poker_Save", "Poker_Print", "Poker_print_setup",
                                 "Card_Index_st", "FirstDeal", "cmdExit"));
}

TEST_F(PokerWindowTest, EscapeAndExitCloseWithoutAQuestion) {
  for (const bool escape : {true, false}) {
    Poker another(desk.Prog, machine, memory);
    OpenWindow<PokerWindow>(another);
    WaitForContact();
    Click("Generate");
    if (escape) {
      Press(Qt::Key_Escape);
    } else {
      PressLetter(Qt::Key_E, "cmdExit");
    }
    EXPECT_TRUE(another.Closed());
    EXPECT_FALSE(window->isVisible());
    window.reset();
  }
  EXPECT_THAT(desk.Boxes, IsEmpty());
}

}  // namespace
}  // namespace morvane::poker
