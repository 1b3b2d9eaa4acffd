-- The tables of a new database file. Whoever makes the file runs this text in one transaction and
-- adds the first rows; the module itself never creates or alters a table.
--
-- Texts are stored in the module's code page as they are. Dates are texts such as
-- 2008-03-07 14:05:00; those that the tables fill in themselves are in UTC. The relations between
-- the tables are kept by the module's operations, not by constraints. Comments stand outside the
-- statements: the database keeps a statement's text and reads it again whenever it is opened.

-- A folder, shown as a group of channels. A negative order protects it from renaming and deletion.
CREATE TABLE TB_FOLDER (
  folder_id    INTEGER PRIMARY KEY,
  folder_name  TEXT,
  folder_order INTEGER DEFAULT 0
);

-- A subscribed feed.
--   channel_folderID  folder_id
--   channel_xmllink   the feed's address
--   channel_htmllink  the site's address
--   channel_type      the feed format's name, or NULL
--   channel_order     position in its folder
--   channel_state     outcome of the last refresh
CREATE TABLE TB_CHANNEL (
  channel_id         INTEGER PRIMARY KEY,
  channel_folderID   INTEGER,
  channel_title      TEXT,
  channel_xmllink    TEXT,
  channel_htmllink   TEXT,
  channel_type       TEXT,
  channel_order      INTEGER DEFAULT 0,
  channel_state      INTEGER DEFAULT 0,
  channel_createDate TEXT DEFAULT CURRENT_TIMESTAMP,
  channel_updateDate TEXT
);

-- An item of a feed; within its channel the link identifies it.
--   post_channelID   channel_id
--   post_pubDate     from the feed, or empty
--   post_ispodcast   1: post_link is a media file
--   post_readStatus  0 unread, 1 read
--   post_createDate  the clean-up counts a post's age from here
CREATE TABLE TB_POST (
  post_id         INTEGER PRIMARY KEY,
  post_channelID  INTEGER,
  post_title      TEXT,
  post_link       TEXT,
  post_pubDate    TEXT,
  post_desc       TEXT,
  post_ispodcast  INTEGER DEFAULT 0,
  post_readStatus INTEGER DEFAULT 0,
  post_createDate TEXT DEFAULT CURRENT_TIMESTAMP,
  post_updateDate TEXT
);

-- A cabinet: a collection of saved posts.
CREATE TABLE TB_SCRAP_CHANNEL (
  scrap_channel_id         INTEGER PRIMARY KEY,
  scrap_channel_title      TEXT,
  scrap_channel_order      INTEGER DEFAULT 0,
  scrap_channel_createDate TEXT DEFAULT CURRENT_TIMESTAMP,
  scrap_channel_updateDate TEXT
);

-- A saved post: a copy, which stays when the post or its channel goes.
--   scrap_post_scrapChannelID  scrap_channel_id
--   scrap_post_readStatus      0 unread, 1 read
CREATE TABLE TB_SCRAP_POST (
  scrap_post_id             INTEGER PRIMARY KEY,
  scrap_post_scrapChannelID INTEGER,
  scrap_post_title          TEXT,
  scrap_post_link           TEXT,
  scrap_post_pubDate        TEXT,
  scrap_post_desc           TEXT,
  scrap_post_readStatus     INTEGER DEFAULT 0,
  scrap_post_createDate     TEXT DEFAULT CURRENT_TIMESTAMP,
  scrap_post_updateDate     TEXT
);

-- Is this item stored already? Asked for every item of every refresh.
CREATE INDEX IX_POST_CHANNEL_LINK ON TB_POST (post_channelID, post_link);
-- The counts of unread posts, answered from the index alone.
CREATE INDEX IX_POST_READ_STATUS ON TB_POST (post_readStatus, post_channelID);
-- The rows of one folder, and of one cabinet.
CREATE INDEX IX_CHANNEL_FOLDER ON TB_CHANNEL (channel_folderID);
CREATE INDEX IX_SCRAP_POST_CABINET ON TB_SCRAP_POST (scrap_post_scrapChannelID);
