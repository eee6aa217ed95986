unit Junk;
{ one }(* two *)// three
{ over
lines }{ four }(* more
lines *)
	interface


implementation // last
end.
