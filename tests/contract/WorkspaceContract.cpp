#include "ContractTest.h"

namespace vistrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

class WorkspaceContract : public ContractTest {
  protected:
    [[nodiscard]] Workspace& workspace() { return host->platform().workspace(); }
};

TEST_F(WorkspaceContract, KnowsTheNameOfTheActiveApplication) {
    EXPECT_THAT(workspace().activeApplicationName(), Not(IsEmpty()));
}

TEST_F(WorkspaceContract, PassesAProgramExactlyItsArguments) {
    workspace().launch(
        host->recordingProgram(),
        {"-c", "sleep 1 ; /usr/bin/open '/Some Folder/½.app'", "", "$HOME `id` \"*"});
    EXPECT_THAT(
        host->recordedArguments(),
        ElementsAre("-c", "sleep 1 ; /usr/bin/open '/Some Folder/½.app'", "", "$HOME `id` \"*"));
}

TEST_F(WorkspaceContract, StartsAProgramWithoutArguments) {
    workspace().launch(host->recordingProgram(), {});
    EXPECT_THAT(host->recordedArguments(), IsEmpty());
}

TEST_F(WorkspaceContract, IsSilentAboutAProgramThatIsNotThere) {
    workspace().launch(host->folder() + "/missing", {"argument"});
}

} // namespace
} // namespace vistrel
