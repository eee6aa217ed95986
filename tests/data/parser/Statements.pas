unit Statements;

(* Every kind of statement and expression. *)

interface

implementation

label
  1, Retry;

procedure All(var F: Text);
label
  2, Done;
var
  I: Integer;
  S: string;
begin
  ;
  asm nop end;
  begin
    I := 1;
  end;
  case I of
    1: ;
    2, 3: Inc(I);
    4..6: begin end;
    -1: I := 0;
  else
    Dec(I);
    Dec(I)
  end;
  case S[1] of
    'a'..'z', #13: Exit
  end;
  for I := 1 to 10 do
    for I := 10 downto 1 do
      Continue;
  goto 2;
2: Inc(I);
Done:
  goto Done;
  if I = 1 then
    if not (I in [1, 3..5]) then Break else Halt(1)
  else if (I > 1) and (I >= 2) or (I < 3) xor (I <= 4) then
  else
    Exit;
  inherited;
  inherited All(F);
  S := inherited Name + inherited Items[1];
  inline($90/$90/$CD);
  raise;
  raise Exception.Create('No');
  raise Exception.CreateFmt('No %d', [1]) at @All;
  repeat
    Inc(I)
  until I <> 5;
  repeat until True;
  while I div 2 * 3 / 4 mod 5 shl 6 shr 7 < 0 do
    Inc(I);
  with F, Self.Items[1]^, (Sender as TButton) do
    Name := 'a';
  try
    Foo
  except
    on EAbort do ;
    on E: EMath do raise;
    on E: SysUtils.EInOutError do begin end;
    on SysUtils.EAccessViolation do
  else
    Bar
  end;
  try
  except
    Bar;
    Foo;
  end;
  try
    Foo
  finally
    Bar
  end;
  string(S)[1] := 'b';
  S := string(I) + 'c' + #10 + ^M;
  @Proc := nil;
  @@Proc := @I;
  P^.Next^.Items[1, 2].Call(3)(4)^ := Q;
  (P as TFoo).Bar;
  (P).Bar := not -I + - - 1 - +2;
  I := 1.5 * $FF - (Integer('a'));
  B := X is TFoo;
  B := (A = B) = (C <> D);
  C := 'text'[I];
  C := Hex[I and 15];
  Word.Open(FileName := 'a', Mode := 1, Last);
  Write(I: 5, X: 8: 2, (I): 3);
  WriteLn(F, 'a': I + 1);
  Str(X: 0: 2, S);
  System.Write(System.Copy(S, 1, 2): 5);
  T := [];
  T := [1..2, Red, [Blue]] * Others;
  // the last one
end;

begin
1: All(Output);
Retry:
  All(Output)
end.
