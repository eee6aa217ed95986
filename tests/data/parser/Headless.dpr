uses
  SysUtils;

var
  I: Integer;

procedure Hello;
begin
  WriteLn('Hello')
end;

begin
  for I := 1 to 3 do
    Hello
end.
