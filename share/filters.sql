-- The user's filters. A host program runs this text in one transaction whenever it opens a database, so
-- that older databases have the table too; it changes no other table, and the module works as well
-- without it, but then keeps no filters. Comments stand outside the statements, see schema.sql.

-- A filter a row, applied in the order of the rows.
--   filter_rule  one filter as JSON, UTF-8 whatever the code page
CREATE TABLE IF NOT EXISTS TB_FILTER (
  filter_order INTEGER PRIMARY KEY,
  filter_rule  TEXT
);
