-- What makes a search in texts fast. A host program runs this text in one transaction whenever it opens
-- a database, so that older databases have it too; it changes no other table, and the module works as
-- well without it, but then reads every text for a search. Comments stand outside the statements, see
-- schema.sql.

-- The terms of each text that has been indexed, by the number of its row in TB_TEXT_DOC. The module
-- makes the terms, in UTF-8 whatever the code page. Texts that have gone or changed leave theirs behind;
-- a number is never given again.
CREATE VIRTUAL TABLE IF NOT EXISTS TB_TEXT_INDEX
  USING fts5(terms, content='', columnsize=0, detail=none, tokenize='ascii');

-- The posts and saved posts that have been indexed.
--   text_doc_isSaved    1 for a saved post
--   text_doc_postID     post_id or scrap_post_id
--   text_doc_ownerID    channel_id or scrap_channel_id
--   text_doc_published  post_pubDate or scrap_post_pubDate
CREATE TABLE IF NOT EXISTS TB_TEXT_DOC (
  text_doc           INTEGER PRIMARY KEY AUTOINCREMENT,
  text_doc_isSaved   INTEGER,
  text_doc_postID    INTEGER,
  text_doc_ownerID   INTEGER,
  text_doc_published TEXT
);
CREATE UNIQUE INDEX IF NOT EXISTS IX_TEXT_DOC ON TB_TEXT_DOC (text_doc_postID, text_doc_isSaved);

-- Those that wait for it: at first all. A text that changes while it is indexed waits on, with another
-- text_todo_change.
CREATE TABLE IF NOT EXISTS TB_TEXT_TODO AS
  SELECT 0 AS text_todo_isSaved, post_id AS text_todo_postID, 0 AS text_todo_change FROM TB_POST
  UNION ALL SELECT 1, scrap_post_id, 0 FROM TB_SCRAP_POST;
CREATE UNIQUE INDEX IF NOT EXISTS IX_TEXT_TODO ON TB_TEXT_TODO (text_todo_postID, text_todo_isSaved);

CREATE TRIGGER IF NOT EXISTS TR_TEXT_POST_NEW AFTER INSERT ON TB_POST
BEGIN
  INSERT OR REPLACE INTO TB_TEXT_TODO VALUES (0, new.post_id, random());
END;
CREATE TRIGGER IF NOT EXISTS TR_TEXT_POST_CHANGED
AFTER UPDATE OF post_title, post_desc, post_pubDate, post_channelID ON TB_POST
BEGIN
  DELETE FROM TB_TEXT_DOC WHERE text_doc_postID = new.post_id AND text_doc_isSaved = 0;
  INSERT OR REPLACE INTO TB_TEXT_TODO VALUES (0, new.post_id, random());
END;
CREATE TRIGGER IF NOT EXISTS TR_TEXT_POST_GONE AFTER DELETE ON TB_POST
BEGIN
  DELETE FROM TB_TEXT_DOC WHERE text_doc_postID = old.post_id AND text_doc_isSaved = 0;
  DELETE FROM TB_TEXT_TODO WHERE text_todo_postID = old.post_id AND text_todo_isSaved = 0;
END;

CREATE TRIGGER IF NOT EXISTS TR_TEXT_SCRAP_POST_NEW AFTER INSERT ON TB_SCRAP_POST
BEGIN
  INSERT OR REPLACE INTO TB_TEXT_TODO VALUES (1, new.scrap_post_id, random());
END;
CREATE TRIGGER IF NOT EXISTS TR_TEXT_SCRAP_POST_CHANGED
AFTER UPDATE OF scrap_post_title, scrap_post_desc, scrap_post_pubDate, scrap_post_scrapChannelID
ON TB_SCRAP_POST
BEGIN
  DELETE FROM TB_TEXT_DOC WHERE text_doc_postID = new.scrap_post_id AND text_doc_isSaved = 1;
  INSERT OR REPLACE INTO TB_TEXT_TODO VALUES (1, new.scrap_post_id, random());
END;
CREATE TRIGGER IF NOT EXISTS TR_TEXT_SCRAP_POST_GONE AFTER DELETE ON TB_SCRAP_POST
BEGIN
  DELETE FROM TB_TEXT_DOC WHERE text_doc_postID = old.scrap_post_id AND text_doc_isSaved = 1;
  DELETE FROM TB_TEXT_TODO WHERE text_todo_postID = old.scrap_post_id AND text_todo_isSaved = 1;
END;
