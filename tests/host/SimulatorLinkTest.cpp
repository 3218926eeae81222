#include <gtest/gtest.h>

#include "ErrorOf.h"
#include "HostItems.h"
#include "HostLink.h"
#include "LinkProtocol.h"
#include "SimulatorProcess.h"

using namespace sidekin;
using namespace sidekin::test;

namespace {

// The program's side of the link against the real host simulator process.
TEST(SimulatorLinkTest, SocketFaultsBecomeTheLinkErrors) {
    SimulatorProcess host;
    ASSERT_TRUE(host.started());
    auto channel = link::hostLink().open(host.service(), link::TopicNoWait);
    QStringList seen;
    QObject::connect(
        channel.get(), &link::Channel::itemUpdated,
        [&](const QString& item, const QString& value) { seen << item + "=" + value; });
    channel->advise(link::TopicNoWait, items::ShowOrq, 2000);
    EXPECT_TRUE(seen.isEmpty());  // handed on after the operation, never inside it
    EXPECT_TRUE(waitUntil([&] { return seen == QStringList{"ShowORQ$=11\r\n"}; }));
    EXPECT_EQ(errorOf([&] { channel->request(link::TopicWait, "NoSuchItem$", 2000); }),
              link::ErrRefused);

    host.freeze();
    EXPECT_EQ(errorOf([&] { channel->request(link::TopicWait, items::DataPath, 200); }),
              link::ErrTimeout);
    host.thaw();
    // The late answer to the question given up is passed over.
    EXPECT_EQ(channel->request(link::TopicWait, items::ShowOrq, 2000), "11\r\n");

    EXPECT_EQ(errorOf([] { link::hostLink().open("NobodyServesThis", link::TopicWait); }),
              link::ErrNoHost);
}

}  // namespace
