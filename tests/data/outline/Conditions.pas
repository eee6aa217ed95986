{$A+,B-}
{$DEFINE VERBOSE}
unit Conditions;

{$IFDEF WIN32}
interface
{$ELSE}
INTERFACE { never }
{$ENDIF}

uses
{$IFDEF LINUX}
  Libc,
{$ELSE}
  Windows,
{$ENDIF}
  SysUtils {$IFNDEF LINUX}, Registry{$ENDIF};

type
{$IFDEF UNICODE}
  TText = WideString;
{$ELSE}
  TText = AnsiString;
  TNarrow = AnsiChar;
{$ENDIF}

  TLog = class
  {$IFDEF VERBOSE}
    FLevel: Integer;
    procedure Note(const Text: TText);
  {$ENDIF}
    procedure Write(const Text: TText);
  end;

implementation

{$R *.RES}
{$I conditions.inc}

{$IFOPT R+}
  {$DEFINE CHECKED}
procedure Checked; begin end;
{$ELSE}
procedure Unchecked; begin end;
{$ENDIF}

{$IFDEF VERBOSE}
procedure TLog.Note(const Text: TText);
begin
  {$IFDEF CHECKED}
  if FLevel > 0 then
  {$ELSE}
  while FLevel > 0 do
  {$ENDIF}
    Write(Text);
end;
{$ELSE}
procedure Silent;
begin
  this is not even Pascal
end;
{$IFDEF NESTED}
procedure Hidden; begin end;
{$ENDIF}
procedure Shown;
begin
end;
{$ENDIF}

procedure TLog.Write(const Text: TText);
begin
  (*$IFDEF A*) Beep; (*$ELSE*) Boop( (*$ENDIF*)
end;

end.
