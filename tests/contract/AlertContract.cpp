#include "ContractTest.h"

namespace vistrel {
namespace {

class AlertContract : public ContractTest {
  protected:
    void SetUp() override { host->openWindow(initial); }

    void TearDown() override { host->closeWindow(); }

    bool run(const Alert& alert, AlertAnswer answer) {
        host->answerNextAlert(answer);
        return application().runAlert(alert);
    }

    const Rect initial{100, 120, 300, 200};
    const Alert statement{.title = "Success!", .message = "It is done.", .defaultButton = "OK"};
    const Alert question{.title = "Update available",
                         .message = "Do you want to download it now?",
                         .defaultButton = "Download",
                         .alternateButton = "Cancel"};
};

TEST_F(AlertContract, ShowsItsWordsAndOneButton) {
    run(statement, AlertAnswer::byDefaultButton);
    EXPECT_EQ(host->lastAlert(), (ContractAlert{"Success!", "It is done.", {"OK"}}));
}

TEST_F(AlertContract, ShowsItsWordsAndTwoButtonsTheDefaultOneFirst) {
    run(question, AlertAnswer::byDefaultButton);
    EXPECT_EQ(host->lastAlert(),
              (ContractAlert{
                  "Update available", "Do you want to download it now?", {"Download", "Cancel"}}));
}

TEST_F(AlertContract, TellsWhetherTheDefaultButtonEndedIt) {
    EXPECT_TRUE(run(question, AlertAnswer::byDefaultButton));
    EXPECT_FALSE(run(question, AlertAnswer::byAlternateButton));
    EXPECT_FALSE(run(question, AlertAnswer::byClosing));
    EXPECT_TRUE(run(statement, AlertAnswer::byDefaultButton));
    EXPECT_FALSE(run(statement, AlertAnswer::byClosing));
}

TEST_F(AlertContract, TakesNoTextForAFormat) {
    const std::string text = "100 %@ %s %d %n %%";
    run({.title = text, .message = text, .defaultButton = "OK"}, AlertAnswer::byDefaultButton);
    EXPECT_EQ(host->lastAlert(), (ContractAlert{text, text, {"OK"}}));
}

TEST_F(AlertContract, ShowsTextsOfEveryLength) {
    std::string text;
    for (const std::size_t length : {0U, 10U, 600U, 12000U}) {
        while (text.size() < length)
            text += "½ word ";
        run({.title = "Title", .message = text, .defaultButton = "OK"},
            AlertAnswer::byDefaultButton);
        EXPECT_EQ(host->lastAlert().message, text);
    }
}

class DismissedAlertContract : public AlertContract,
                               public testing::WithParamInterface<AlertAnswer> {};

TEST_P(DismissedAlertContract, LeavesTheKeyWindowAsItWas) {
    run(question, GetParam());
    EXPECT_EQ(application().keyWindow().frame(), initial);
    EXPECT_EQ(application().mainWindow().frame(), initial);
}

INSTANTIATE_TEST_SUITE_P(Answers, DismissedAlertContract,
                         testing::Values(AlertAnswer::byDefaultButton,
                                         AlertAnswer::byAlternateButton, AlertAnswer::byClosing));

TEST_F(AlertContract, NeedsNoWindowOfTheHost) {
    host->closeWindow();
    EXPECT_TRUE(run(statement, AlertAnswer::byDefaultButton));
    EXPECT_FALSE(run(statement, AlertAnswer::byClosing));
}

} // namespace
} // namespace vistrel
