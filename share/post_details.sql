-- Who wrote a post, and what it is about. A host program runs this text in one transaction whenever it
-- opens a database, so that older databases have it too; it changes no other table, and the module
-- works as well without it, but then keeps neither. Comments stand outside the statements, see
-- schema.sql.

-- A post without a row has neither. Names are plain text, one a line.
CREATE TABLE IF NOT EXISTS TB_POST_DETAIL (
  post_detail_postID     INTEGER PRIMARY KEY,
  post_detail_authors    TEXT,
  post_detail_categories TEXT
);

CREATE TRIGGER IF NOT EXISTS TR_POST_DETAIL_GONE AFTER DELETE ON TB_POST
BEGIN
  DELETE FROM TB_POST_DETAIL WHERE post_detail_postID = old.post_id;
END;
