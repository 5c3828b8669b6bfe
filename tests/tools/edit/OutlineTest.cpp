// SPDX-License-Identifier: MIT
#include "tests/tools/edit/DocumentFixture.h"

class EditOutline : public DocumentFixture
{
};

TEST_F(EditOutline, AnItemIsFoundByThePlaceThatTheLinterTells)
{
    Open(night);
    const lint::Report report = lint::CheckText(document.Text(), "", {});
    ItemId item;
    ASSERT_EQ(2u, report.show.entries.size());
    EXPECT_TRUE(
        document.GetOutline().FindItem(report.show.entries[1].line, report.show.entries[1].column, &item));
    EXPECT_EQ(ItemId({Clouds, -1}), item);
    std::vector<ItemId> found;
    for (const lint::SentMessage& message : report.show.messages) {
        EXPECT_TRUE(document.GetOutline().FindItem(message.line, message.column, &item));
        EXPECT_EQ(int(message.block), document.GetOutline().blocks[item.block].messageBlock);
        found.push_back(item);
    }
    EXPECT_EQ(std::vector<ItemId>(
                  {{Hand, 0}, {Flash, 0}, {Flash, 0}, {Hand, 1}, {Flash, 0}, {Flash, 0}, {Hand, 2}}),
              found);
    EXPECT_FALSE(document.GetOutline().FindItem(1, 1, &item));
}
