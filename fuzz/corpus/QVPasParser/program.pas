program P(Input, Output);
uses A in 'a.pas', B;
var x: Integer;
procedure Q; forward;
procedure Q; begin end;
begin
  x := 1 {$IFDEF Y} + 2 {$ELSE} - 3 {$ENDIF};
end.
