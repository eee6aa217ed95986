unit Callbacks;

interface

uses Messages;

const
  WM_REFRESH = $0400 + 1;

type
  TCompare = function(A, B: Pointer): Integer; stdcall;
  TNotify = procedure(Sender: TObject) of object;
  TPlain = procedure; cdecl;

  TRoute = record
    Code: Integer;
    Handler: TPlain;
  end;

  TWindow = class
  private
    FOnPaint: TNotify;
    procedure WMRefresh(var Message: TMessage); message WM_REFRESH;
    procedure CMEnter(var Message: TMessage); message 45056;
  public
    procedure Dispatch(var Message); override;
    property OnPaint: TNotify read FOnPaint write FOnPaint stored False;
  end;

procedure Sort(List: array of Pointer; Compare: TCompare = nil);
function Join(const Parts: array of const; out Count: Integer): string;

implementation

procedure OnOpen; cdecl;
begin
end;

procedure OnClose; cdecl;
begin
end;

const
  Routes: array[0..1] of TRoute = (
    (Code: 1; Handler: OnOpen),
    (Code: 2; Handler: OnClose));
  Limits: array[Boolean, 0..1] of Integer = ((0, 1), (10, 11));

procedure TWindow.WMRefresh(var Message: TMessage);
begin
  if Assigned(FOnPaint) then FOnPaint(Self);
end;

procedure TWindow.CMEnter(var Message: TMessage);
begin
end;

procedure TWindow.Dispatch(var Message);
begin
  inherited;
  TPlain(@OnOpen)();
end;

procedure Sort(List: array of Pointer; Compare: TCompare);

  procedure Quick(L, R: Integer);

    function Less(A, B: Pointer): Boolean;
    begin
      Result := Compare(A, B) < 0;
    end;

  begin
    if L < R then Quick(L + 1, R);
  end;

begin
  Quick(Low(List), High(List));
end;

function Join(const Parts: array of const; out Count: Integer): string;
begin
  Count := High(Parts) + 1;
end;

end.
