-- What undo needs: the rows that the last step of the user has deleted, and the read status of those
-- that it has marked. A host program runs this text behind gone_links.sql, in one transaction
-- whenever it opens a database; it changes no other table, and the module works as well without it,
-- but then offers no undo. All rows are those of one step: the next one replaces them, and the pages
-- of the file are used again. Comments stand outside the statements, see schema.sql.

-- The step that is kept, if any. Numbers are not given twice, so that a program knows its own step.
--   step_rows  how many rows of the step's first table are kept
CREATE TABLE IF NOT EXISTS TB_UNDO_STEP (
  step_id   INTEGER PRIMARY KEY AUTOINCREMENT,
  step_rows INTEGER
);

-- Deleted rows, whole.
CREATE TABLE IF NOT EXISTS TB_UNDO_FOLDER AS SELECT * FROM TB_FOLDER LIMIT 0;
CREATE TABLE IF NOT EXISTS TB_UNDO_CHANNEL AS SELECT * FROM TB_CHANNEL LIMIT 0;
CREATE TABLE IF NOT EXISTS TB_UNDO_POST AS SELECT * FROM TB_POST LIMIT 0;
CREATE TABLE IF NOT EXISTS TB_UNDO_SCRAP_CHANNEL AS SELECT * FROM TB_SCRAP_CHANNEL LIMIT 0;
CREATE TABLE IF NOT EXISTS TB_UNDO_SCRAP_POST AS SELECT * FROM TB_SCRAP_POST LIMIT 0;

-- What post_details.sql holds of deleted posts; stays empty without its table.
CREATE TABLE IF NOT EXISTS TB_UNDO_POST_DETAIL (
  post_detail_postID     INTEGER,
  post_detail_authors    TEXT,
  post_detail_categories TEXT
);

-- What the step makes gone_links.sql forget: all of deleted channels, and the oldest links of those
-- that lose many posts.
CREATE TABLE IF NOT EXISTS TB_UNDO_GONE_LINK AS SELECT * FROM TB_GONE_LINK LIMIT 0;
CREATE TABLE IF NOT EXISTS TB_UNDO_GONE_COUNT AS SELECT * FROM TB_GONE_COUNT LIMIT 0;

-- The channels of deleted posts, and the cabinets, by the negative of their number: another one may
-- have got the number since.
CREATE TABLE IF NOT EXISTS TB_UNDO_OWNER (
  owner_id         INTEGER PRIMARY KEY,
  owner_createDate TEXT
);

-- The former read status of marked posts, and of marked saved posts. Owner and link tell whether
-- the number is still that post's.
CREATE TABLE IF NOT EXISTS TB_UNDO_MARK (
  mark_id         INTEGER PRIMARY KEY,
  mark_ownerID    INTEGER,
  mark_link       TEXT,
  mark_readStatus INTEGER
);
CREATE TABLE IF NOT EXISTS TB_UNDO_SCRAP_MARK (
  mark_id         INTEGER PRIMARY KEY,
  mark_ownerID    INTEGER,
  mark_link       TEXT,
  mark_readStatus INTEGER
);

-- While rows are brought back: the number that each of them gets.
CREATE TABLE IF NOT EXISTS TB_UNDO_ID (
  id_former INTEGER PRIMARY KEY,
  id_now    INTEGER
);
