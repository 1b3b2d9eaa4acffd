-- What keeps a deleted post away although its feed still has it. A host program runs this text in one
-- transaction whenever it opens a database, so that older databases have it too; it changes no other
-- table, and the module works as well without it. Comments stand outside the statements, see
-- schema.sql.

-- A link whose post was deleted from its channel: as long as it stands here, no post with it comes
-- into that channel again. Whoever wants a deleted post back deletes its row here first.
--   gone_channelID  channel_id
--   gone_link       the post_link, which may be empty
--   gone_number     counts the deleted posts of the channel
CREATE TABLE IF NOT EXISTS TB_GONE_LINK (
  gone_channelID INTEGER,
  gone_link      TEXT,
  gone_number    INTEGER,
  PRIMARY KEY (gone_channelID, gone_link)
) WITHOUT ROWID;

-- How many posts of a channel were deleted. A table of its own is quicker than an index of the links
-- by their number.
CREATE TABLE IF NOT EXISTS TB_GONE_COUNT (
  gone_count_channelID INTEGER PRIMARY KEY,
  gone_count           INTEGER
);

-- Posts that go with their channel, or after it, leave no links.
CREATE TRIGGER IF NOT EXISTS TR_POST_GONE AFTER DELETE ON TB_POST
WHEN old.post_link IS NOT NULL
  AND EXISTS (SELECT 1 FROM TB_CHANNEL WHERE channel_id = old.post_channelID)
BEGIN
  INSERT INTO TB_GONE_COUNT VALUES (old.post_channelID, 1)
    ON CONFLICT DO UPDATE SET gone_count = gone_count + 1;
  INSERT OR REPLACE INTO TB_GONE_LINK VALUES (old.post_channelID, old.post_link,
    (SELECT gone_count FROM TB_GONE_COUNT WHERE gone_count_channelID = old.post_channelID));
END;

-- Keeps the newest 4,000 links of a channel, and at most 5,000. A thousand go at once, because they
-- are found by reading all links of the channel.
CREATE TRIGGER IF NOT EXISTS TR_GONE_COUNT AFTER UPDATE ON TB_GONE_COUNT
WHEN new.gone_count % 1000 = 0
BEGIN
  DELETE FROM TB_GONE_LINK WHERE gone_channelID = new.gone_count_channelID
    AND gone_number <= new.gone_count - 4000;
END;

-- The row is left out without an error.
CREATE TRIGGER IF NOT EXISTS TR_POST_NEW BEFORE INSERT ON TB_POST
WHEN EXISTS (SELECT 1 FROM TB_GONE_LINK
  WHERE gone_channelID = new.post_channelID AND gone_link = new.post_link)
BEGIN
  SELECT RAISE(IGNORE);
END;

-- The number of a deleted channel may be given to a new one, which inherits nothing.
CREATE TRIGGER IF NOT EXISTS TR_CHANNEL_GONE AFTER DELETE ON TB_CHANNEL
BEGIN
  DELETE FROM TB_GONE_LINK WHERE gone_channelID = old.channel_id;
  DELETE FROM TB_GONE_COUNT WHERE gone_count_channelID = old.channel_id;
END;
CREATE TRIGGER IF NOT EXISTS TR_CHANNEL_NEW AFTER INSERT ON TB_CHANNEL
BEGIN
  DELETE FROM TB_GONE_LINK WHERE gone_channelID = new.channel_id;
  DELETE FROM TB_GONE_COUNT WHERE gone_count_channelID = new.channel_id;
END;
