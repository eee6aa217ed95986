'a' 'it''s' '''' '' 'open
'a''
#13#$0D