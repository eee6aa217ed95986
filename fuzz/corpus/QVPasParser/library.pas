library L;
uses A;
exports Q index 1 name 'q' resident, R;
begin
end.
