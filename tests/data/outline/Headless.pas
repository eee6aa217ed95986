{ A program may do without its heading. }
uses
  Crt;

type
  TAnswer = (Yes, No, Perhaps);

var
  Answer: TAnswer;
  Line: string;

function Ask(const Question: string): TAnswer;
begin
  Write(Question, ' ');
  ReadLn(Line);
  if Line = 'y' then
    Ask := Yes
  else if Line = 'n' then
    Ask := No
  else
    Ask := Perhaps;
end;

procedure Tell;
begin
  WriteLn(Ord(Answer): 4);
end;

begin
  repeat
    Answer := Ask('Again?');
    Tell;
  until Answer <> Yes;
end.
