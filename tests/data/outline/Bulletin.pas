Unit Bulletin;

Interface

Uses
   Crt, Dos;

Type
   PEntry = ^TEntry;
   TEntry = Record
      Title : String[40];
      Stamp : LongInt;
      Next  : PEntry;
   End;

   TVisitor = Procedure(Var Entry : TEntry);

Var
   First : PEntry;

Procedure AddEntry(Const ATitle : String);
Procedure EachEntry(Visit : TVisitor);
Function EntryCount : Integer;

Implementation

Var
   Total : Integer;

Procedure AddEntry;
Var
   Entry : PEntry;

   Function Stamp : LongInt;
   Var
      Y, M, D, W : Word;
   Begin
      GetDate(Y, M, D, W);
      Stamp := LongInt(Y) * 10000 + M * 100 + D;
   End;

Begin
   New(Entry);
   With Entry^ Do Begin
      Title := ATitle;
      Next := First;
   End;
   Entry^.Stamp := Stamp;
   First := Entry;
   Inc(Total)
End;

Procedure EachEntry;
Var
   Entry : PEntry;
Begin
   Entry := First;
   While Entry <> Nil Do Begin
      Visit(Entry^);
      Entry := Entry^.Next
   End
End;

Function EntryCount;
Begin
   EntryCount := Total;
   Case Total Of
      0 : WriteLn('none');
      1..9 : WriteLn(Total : 2, ' few')
   Else
      WriteLn(Total : 6 : 0, ' many')
   End;
   Repeat
      If KeyPressed Then Exit
   Until Total = 0
End;

Begin
   First := Nil;
   Total := 0
End.
